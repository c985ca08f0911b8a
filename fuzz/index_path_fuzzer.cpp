// Any index path on any tree. The input is a line that describes the pages, and the path behind it:
//
//     pg1e2ncl3
//     1.2.1
//
// `n` begins a page, `g` a group, `l` a layer, `t` a text group; `e` ends the innermost of these. `c` is a
// clipping path, and any other byte a path. What stands open at the end of a page stays so.
//
// Laws:
// - a path is refused with the one exception for its mistake, and only then;
// - objects are hit in the order of the tree, each once, none below a group that was hit;
// - the first hit on each page is what a plain resolver finds there, and there is none where that finds none;
// - behind a hit on a plain object there is no other one on the page.

#include "fuzz_target.h"

#include <harrow_support/content_generator.h>
#include <harrow_support/rpn_parser.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <boost/lexical_cast.hpp>

#include <orv_doc/content.h>
#include <orv_doc/document.h>
#include <orv_doc/group.h>
#include <orv_doc/page.h>
#include <orv_doc/path.h>
#include <orv_doc/text_group.h>
#include <plexa/geometry.h>

namespace HarrowSupport::Fuzzing
{

namespace
{

using Objects = OrvDoc::Detail::List<OrvDoc::ContentObject>;
using Path = std::vector<std::int64_t>;

/// Enough for each case; more would only take time.
constexpr std::size_t maximalPageCount = 8;

std::unique_ptr<OrvDoc::Path> MakePath(bool clips)
{
    auto path = std::make_unique<OrvDoc::Path>(Plexa::GetRectangleCompound(
        Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>(0.0, 0.0, 1000.0, 1000.0)));
    path->SetClippingObject(clips);
    return path;
}

std::unique_ptr<OrvDoc::Document> MakeDocument(std::string_view description)
{
    auto document = OrvDoc::Document::CreateNew();
    std::optional<ContentGenerator> generator;
    std::size_t depth = 0;
    const auto beginPage = [&] {
        generator.emplace(document->AddPage({0.0, 0.0, 1000.0, 1000.0}).GetContent());
        depth = 0;
    };
    beginPage();
    for (const char byte : description) {
        switch (byte) {
        case 'n':
            if (document->GetNumberOfPages() < maximalPageCount)
                beginPage();
            break;
        case 'g':
            generator->BeginGroup(std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default));
            ++depth;
            break;
        case 'l':
            generator->BeginLayer("layer");
            ++depth;
            break;
        case 't':
            generator->BeginGroup(std::make_unique<OrvDoc::TextGroup>());
            ++depth;
            break;
        case 'e':
            if (depth != 0) {
                generator->EndGroup();
                --depth;
            }
            break;
        default:
            generator->Add(MakePath(byte == 'c'));
        }
    }
    return document;
}

/// The number that a text stands for: digits, with a sign or none ahead, that a 32-bit integer can hold.
std::optional<std::int64_t> ReadNumber(std::string_view text)
{
    const bool isNegative = !text.empty() && text[0] == '-';
    if (isNegative || (!text.empty() && text[0] == '+'))
        text.remove_prefix(1);
    if (text.empty())
        return std::nullopt;
    std::int64_t number = 0;
    for (const char character : text) {
        if (character < '0' || character > '9')
            return std::nullopt;
        number = 10 * number + (character - '0');
        if (number > std::int64_t{std::numeric_limits<std::int32_t>::max()} + (isNegative ? 1 : 0))
            return std::nullopt;
    }
    return isNegative ? -number : number;
}

/// Nothing if any part is no number.
std::optional<Path> ReadPath(std::string_view text)
{
    Path path;
    for (;;) {
        const std::size_t dot = text.find('.');
        const std::optional<std::int64_t> number = ReadNumber(text.substr(0, dot));
        if (!number)
            return std::nullopt;
        path.push_back(*number);
        if (dot == std::string_view::npos)
            return path;
        text.remove_prefix(dot + 1);
    }
}

bool IsGroup(const OrvDoc::ContentObject& object)
{
    return dynamic_cast<const OrvDoc::Group*>(&object) != nullptr;
}

/// The plain resolver: the object that a path leads to from the top of a content, null if there is none.
const OrvDoc::ContentObject* Resolve(const Objects& top, const Path& path)
{
    const Objects* level = &top;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const OrvDoc::ContentObject* object = level->first;
        for (std::int64_t position = 1; object && position != path[i]; ++position)
            object = object->next;
        if (!object)
            return nullptr;
        const auto* const group = dynamic_cast<const OrvDoc::Group*>(object);
        if (!group || i + 1 == path.size())
            return object;
        level = &group->children;
    }
    return nullptr;
}

/// Gives each object below its place in the order of the tree.
using Places = std::unordered_map<const OrvDoc::ContentObject*, std::size_t>;

void Number(const Objects& top, Places& places)
{
    // The next object of each level, since groups may be nested deeper than the call stack allows.
    std::vector<const OrvDoc::ContentObject*> levels{top.first};
    while (!levels.empty()) {
        const OrvDoc::ContentObject* const object = levels.back();
        if (!object) {
            levels.pop_back();
            continue;
        }
        levels.back() = object->next;
        places.emplace(object, places.size());
        if (const auto* const group = dynamic_cast<const OrvDoc::Group*>(object))
            levels.push_back(group->children.first);
    }
}

using Hits = std::vector<const OrvDoc::ContentObject*>;

void RequireOrder(const Hits& hits, const Places& places)
{
    std::unordered_set<const OrvDoc::ContentObject*> seen;
    std::optional<std::size_t> last;
    for (const OrvDoc::ContentObject* const hit : hits) {
        const auto place = places.find(hit);
        Require(place != places.end(), "only objects of the tree are hit");
        Require(!last || *last < place->second, "objects are hit in the order of the tree, each once");
        last = place->second;
        seen.insert(hit);
        for (const OrvDoc::Group* group = hit->GetParentGroup(); group; group = group->GetParentGroup())
            Require(seen.count(group) == 0, "nothing below a group that was hit is hit");
    }
}

void RequireFirstHit(const Hits& hits, const OrvDoc::Content& content, const Path& path)
{
    const auto isHere = [&](const OrvDoc::ContentObject* hit) { return hit->GetContent() == &content; };
    const auto first = std::find_if(hits.begin(), hits.end(), isHere);
    const OrvDoc::ContentObject* const expected = Resolve(content.GetChildren(), path);
    if (!expected) {
        Require(first == hits.end(), "a path that leads nowhere on a page hits nothing there");
        return;
    }
    Require(first != hits.end() && *first == expected, "the first hit is where the path leads");
    if (!IsGroup(*expected))
        Require(std::count_if(first, hits.end(), isHere) == 1, "nothing follows a hit on a plain object");
}

/// Whether the path is refused, and with the exception for its mistake.
void RequireOutcome(const std::string& text, OrvDoc::Visitable& root, const std::optional<Path>& path,
                    Hits& hits)
{
    bool isBadPart = false;
    bool isTooShort = false;
    try {
        ApplyOnIndexedObject(text, root, [&](OrvDoc::ContentObject& object) { hits.push_back(&object); });
    } catch (const boost::bad_lexical_cast&) {
        isBadPart = true;
    } catch (const std::runtime_error& error) {
        isTooShort = error.what() == std::string("invalid target");
        Require(isTooShort, "the one runtime error is that of a short path");
    }
    Require(isBadPart == !path, "a path with a part that is no number is refused, and no other for that");
    Require(isTooShort == (path && path->size() < 2),
            "a path of one number is refused, and no other for that");
    Require((!isBadPart && !isTooShort) || hits.empty(), "nothing is hit by a path that is refused");
}

void Run(std::string_view input)
{
    const std::size_t line = std::min(input.find('\n'), input.size());
    const std::unique_ptr<OrvDoc::Document> document = MakeDocument(input.substr(0, line));
    const std::string text(input.substr(std::min(line + 1, input.size())));
    const std::optional<Path> path = ReadPath(text);

    std::vector<OrvDoc::Content*> contents;
    Places places;
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page) {
        contents.push_back(&page->GetContent());
        Number(page->GetContent().GetChildren(), places);
    }

    Hits hits;
    RequireOutcome(text, *document, path, hits);
    RequireOrder(hits, places);
    for (OrvDoc::Content* const content : contents) {
        Hits hitsFromContent;
        RequireOutcome(text, *content, path, hitsFromContent);
        RequireOrder(hitsFromContent, places);
        if (path && path->size() >= 2) {
            RequireFirstHit(hits, *content, *path);
            RequireFirstHit(hitsFromContent, *content, *path);
        }
    }
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    HarrowSupport::Fuzzing::Run(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
