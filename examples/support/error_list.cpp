#include "error_list.h"

#include "line_reporter.h"

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/errors.h>
#include <orv_doc/page.h>
#include <orv_sys/error.h>

#include <algorithm>
#include <iterator>
#include <ostream>

namespace Examples
{

namespace
{

void AppendErrors(std::vector<PlacedError>& list, const std::string& place, const OrvDoc::Errors& errors)
{
    for (const auto& error : errors.GetAllErrors())
        list.push_back({place, error});
}

} // namespace

std::vector<PlacedError> ListActiveErrors(OrvDoc::Document& document)
{
    // The contents come first, since an error of the document may be met while one of them is made.
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        page->GetContent();
    std::vector<PlacedError> list;
    AppendErrors(list, "document", document.GetActiveErrors());
    for (auto page = document.GetPagesBegin(); page != document.GetPagesEnd(); ++page)
        AppendErrors(list, "page " + std::to_string(page->GetPageIndex() + 1),
                     page->GetContent().GetActiveErrors());
    return list;
}

std::vector<PlacedError> FindNewErrors(const std::vector<PlacedError>& before,
                                       const std::vector<PlacedError>& after)
{
    std::vector<PlacedError> newErrors;
    std::copy_if(
        after.begin(), after.end(), std::back_inserter(newErrors), [&](const PlacedError& candidate) {
            return std::none_of(before.begin(), before.end(),
                                [&](const PlacedError& known) { return known.error == candidate.error; });
        });
    return newErrors;
}

void WriteErrors(std::ostream& stream, const std::vector<PlacedError>& errors)
{
    for (const PlacedError& entry : errors)
        stream << "error\t" << entry.place << '\t' << EscapeField(entry.error->GetText()) << '\n';
}

} // namespace Examples
