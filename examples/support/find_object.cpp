// The object is found by HarrowSupport::ApplyOnIndexedObject, whose walk goes on behind the object that the
// path names, and which calls for a plain object where the path wants to go further. So only the first call
// counts, and only if the object lies as deep as the path is long. The page is picked here, since the walk
// heeds no page.

#include "find_object.h"

#include <harrow_support/rpn_parser.h>

#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>

#include <boost/lexical_cast.hpp>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <stdexcept>

namespace Examples
{

namespace
{

OrvDoc::Page& FindPage(OrvDoc::Document& document, int number)
{
    if (number < 1 || static_cast<std::uint64_t>(number) > document.GetNumberOfPages())
        throw std::runtime_error("there is no page " + std::to_string(number));
    return *std::next(document.GetPagesBegin(), number - 1);
}

/// One for an object at the top of a content.
std::ptrdiff_t DepthOf(const OrvDoc::ContentObject& object)
{
    std::ptrdiff_t depth = 1;
    for (const OrvDoc::Group* group = object.GetParentGroup(); group != nullptr;
         group = group->GetParentGroup())
        ++depth;
    return depth;
}

} // namespace

OrvDoc::ContentObject& FindObject(OrvDoc::Document& document, const std::string& path)
{
    OrvDoc::ContentObject* found = nullptr;
    try {
        OrvDoc::Page& page = FindPage(document, boost::lexical_cast<int>(path.substr(0, path.find('.'))));
        HarrowSupport::ApplyOnIndexedObject(path, page, [&found](OrvDoc::ContentObject& object) {
            if (found == nullptr)
                found = &object;
        });
    } catch (const boost::bad_lexical_cast&) {
        throw std::runtime_error("a path is made of numbers with dots between, such as 2.3.1");
    }
    if (found == nullptr || DepthOf(*found) != std::count(path.begin(), path.end(), '.'))
        throw std::runtime_error("there is no such object");
    return *found;
}

} // namespace Examples
