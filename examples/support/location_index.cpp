#include "location_index.h"

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>

#include <vector>

namespace Examples
{

namespace
{

const char* NameOfNestedContent(OrvDoc::Content::Type type)
{
    switch (type) {
    case OrvDoc::Content::Type::PageContent:
        break;
    case OrvDoc::Content::Type::FormContent:
        return "form";
    case OrvDoc::Content::Type::ColoredPatternContent:
    case OrvDoc::Content::Type::UncoloredPatternContent:
        return "pattern";
    case OrvDoc::Content::Type::SoftMaskContent:
        return "soft mask";
    }
    return "content";
}

} // namespace

LocationIndex::LocationIndex(const OrvDoc::Document& documentToDescribe)
    : document(documentToDescribe), nextPage(documentToDescribe.GetPagesBegin())
{}

std::string LocationIndex::Describe(const HarrowSupport::Comparators::LocationPath& path)
{
    if (path.empty())
        return "document";
    return boost::apply_visitor([this](const auto* item) { return Describe(item); }, path.back());
}

std::string LocationIndex::Describe(const OrvDoc::Page* page)
{
    return page == nullptr ? "-" : "page " + std::to_string(page->GetPageIndex() + 1);
}

std::string LocationIndex::Describe(const OrvDoc::Content* content)
{
    if (content == nullptr)
        return "-";
    if (content->GetType() == OrvDoc::Content::Type::PageContent)
        return DescribePageContent(*content);
    return NameOfNestedContent(content->GetType());
}

std::string LocationIndex::Describe(const OrvDoc::ContentObject* object)
{
    if (object == nullptr)
        return "-";
    const OrvDoc::Content* content = object->GetContent();
    if (content == nullptr)
        return "object outside of any content";
    if (walkedContents.insert(content).second)
        AddObjects(*content);

    std::vector<std::uint64_t> positions;
    for (auto found = places.find(object); found != places.end(); found = places.find(found->second.parent))
        positions.push_back(found->second.position);
    std::string words = Describe(content);
    const char* separator = " object ";
    for (auto position = positions.rbegin(); position != positions.rend(); ++position) {
        words += separator + std::to_string(*position);
        separator = ".";
    }
    return words;
}

std::string LocationIndex::DescribePageContent(const OrvDoc::Content& content)
{
    // Reports come page by page, so the pages up to the one that is asked for have been made already.
    auto found = pageNumbers.find(&content);
    while (found == pageNumbers.end() && nextPage != document.GetPagesEnd()) {
        pageNumbers.emplace(&nextPage->GetContent(), nextPage->GetPageIndex() + 1);
        ++nextPage;
        found = pageNumbers.find(&content);
    }
    return found == pageNumbers.end() ? "content" : "page " + std::to_string(found->second);
}

void LocationIndex::AddObjects(const OrvDoc::Content& content)
{
    struct List
    {
        const OrvDoc::ContentObject* parent;
        const OrvDoc::ContentObject* first;
    };
    // Groups may be nested deeper than the program's stack allows.
    std::vector<List> open{{nullptr, content.GetChildren().first}};
    while (!open.empty()) {
        const List list = open.back();
        open.pop_back();
        std::uint64_t position = 0;
        for (const OrvDoc::ContentObject* object = list.first; object != nullptr; object = object->next) {
            ++position;
            places.emplace(object, Place{list.parent, position});
            if (const auto* group = dynamic_cast<const OrvDoc::Group*>(object))
                open.push_back({object, group->children.first});
        }
    }
}

} // namespace Examples
