#include "pdf/fonts/to_unicode.h"

#include "pdf/fonts/cid_code_points.h"
#include "pdf/fonts/cmap_library.h"
#include "pdf/fonts/range_cmap.h"
#include "pdf/fonts/utf16.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <mutex>

namespace OrvPdf
{

namespace
{

constexpr std::uint32_t cidCount = 65536;

/// The CMap from UTF-32 to a collection, without the writing mode in its name.
struct Collection
{
    const char* ordering;
    const char* unicodeMap;
};

constexpr Collection collections[] = {
    {"Japan1", "UniJIS-UTF32"}, {"GB1", "UniGB-UTF32"}, {"CNS1", "UniCNS-UTF32"},
    {"Korea1", "UniKS-UTF32"},  {"KR", "UniAKR-UTF32"}, {"Japan2", "UniHojo-UTF32"},
};

struct CodePointRange
{
    char32_t low;
    char32_t high;
    int cost;
};

/// Code points that stand for a form of a character which has a plainer one, and as the last choice those
/// that anybody may use for anything.
constexpr CodePointRange costlyRanges[] = {
    {0x00A0, 0x00A0, 1},   {0x00AD, 0x00AD, 1},    {0x0300, 0x036F, 1}, {0x2E80, 0x2FDF, 1},
    {0xE000, 0xF8FF, 2},   {0xF900, 0xFAFF, 1},    {0xFE10, 0xFE1F, 1}, {0xFE30, 0xFE6F, 1},
    {0x2F800, 0x2FA1F, 1}, {0xF0000, 0x10FFFF, 2},
};

constexpr int unusable = 3;

int CostOf(char32_t codePoint)
{
    if (codePoint == 0 || codePoint == 0xFFFD || codePoint > 0x10FFFF ||
        (codePoint >= 0xD800 && codePoint <= 0xDFFF))
        return unusable;
    for (const CodePointRange& range : costlyRanges) {
        if (codePoint >= range.low && codePoint <= range.high)
            return range.cost;
    }
    return 0;
}

bool IsVariationSelector(char32_t codePoint)
{
    return (codePoint >= 0xFE00 && codePoint <= 0xFE0F) || (codePoint >= 0xE0100 && codePoint <= 0xE01EF);
}

/// Of two code points that cost the same, the one that is offered first stays.
class CheapestCodePoints
{
public:
    void Offer(std::uint32_t cid, char32_t codePoint)
    {
        if (cid < cidCount && CostOf(codePoint) < CostOf(codePoints[cid]))
            codePoints[cid] = codePoint;
    }

    std::vector<char32_t> Take()
    {
        while (!codePoints.empty() && codePoints.back() == 0)
            codePoints.pop_back();
        codePoints.shrink_to_fit();
        return std::move(codePoints);
    }

private:
    std::vector<char32_t> codePoints = std::vector<char32_t>(cidCount);
};

/// A character with the selector of its form counts as the character.
void OfferTexts(const ToUnicodeMap& texts, CheapestCodePoints& points)
{
    for (std::uint32_t cid = 0; cid < cidCount; ++cid) {
        std::u16string text = texts.Find(cid, 2);
        if (text.empty())
            continue;
        const std::size_t lastUnits = CountLastUnits(text);
        const std::u16string_view last = std::u16string_view(text).substr(text.size() - lastUnits);
        if (lastUnits < text.size() && IsVariationSelector(GetCodePoint(last)))
            text.resize(text.size() - lastUnits);
        if (CountLastUnits(text) == text.size())
            points.Offer(cid, GetCodePoint(text));
    }
}

void OfferInverse(const CMap* map, CheapestCodePoints& points)
{
    const auto* const ranges = dynamic_cast<const RangeCMap*>(map);
    if (!ranges)
        return;
    for (const CodeRange& range : ranges->GetCids(maximalCodeBytes).GetAll()) {
        for (std::uint32_t step = 0; step <= range.high - range.low; ++step)
            points.Offer(range.first + step, range.low + step);
    }
}

} // namespace

std::vector<char32_t> MakeCodePointsOfCids(const std::string& ordering, CMapLibrary& library)
{
    const auto* const collection =
        std::find_if(std::begin(collections), std::end(collections),
                     [&ordering](const Collection& other) { return ordering == other.ordering; });
    if (collection == std::end(collections))
        return {};
    CheapestCodePoints points;
    if (const auto file = library.ReadFile("Adobe-" + ordering + "-UCS2"))
        OfferTexts(*ToUnicodeMap::Parse(*file), points);
    for (const char* const mode : {"-H", "-V"})
        OfferInverse(library.Find(collection->unicodeMap + std::string(mode)).get(), points);
    return points.Take();
}

char32_t FindCodePointOfCid(const std::string& ordering, std::uint32_t cid)
{
    struct Table
    {
        std::once_flag once;
        std::vector<char32_t> codePoints;
    };
    static std::array<Table, std::size(collections)> tables;
    for (std::size_t i = 0; i < tables.size(); ++i) {
        if (ordering != collections[i].ordering)
            continue;
        Table& table = tables[i];
        std::call_once(table.once,
                       [&] { table.codePoints = MakeCodePointsOfCids(ordering, CMapLibrary::GetDefault()); });
        return cid < table.codePoints.size() ? table.codePoints[cid] : 0;
    }
    return 0;
}

} // namespace OrvPdf
