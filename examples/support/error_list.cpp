#include "error_list.h"

#include "line_reporter.h"

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_sys/error.h>

#include <ostream>
#include <string>

namespace Examples
{

namespace
{

std::uint64_t WriteErrors(std::ostream& stream, const std::string& place, const OrvDoc::Errors& errors)
{
    for (const auto& error : errors.GetAllErrors())
        stream << "error\t" << place << '\t' << EscapeField(error->GetText()) << '\n';
    return errors.GetAllErrors().size();
}

} // namespace

std::uint64_t WriteActiveErrors(std::ostream& stream, OrvDoc::Document& document)
{
    // The contents come first, since an error of the document may be met while one of them is made.
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        page->GetContent();
    std::uint64_t count = WriteErrors(stream, "document", document.GetActiveErrors());
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page) {
        const std::string place = "page " + std::to_string(page->GetPageIndex() + 1);
        count += WriteErrors(stream, place, page->GetContent().GetActiveErrors());
    }
    return count;
}

} // namespace Examples
