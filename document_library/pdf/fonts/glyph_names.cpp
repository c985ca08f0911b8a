#include "pdf/fonts/glyph_names.h"

#include "pdf/fonts/glyph_list.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <vector>

namespace OrvPdf
{

namespace
{

constexpr char32_t invalid = 0xFFFFFFFF;

/// The code point of a name's digits, which are of 0 to 9 and A to F only; otherwise, and for what is no
/// Unicode scalar value, `invalid`.
char32_t ReadScalar(std::string_view digits)
{
    char32_t value = 0;
    for (const char digit : digits) {
        if (digit >= '0' && digit <= '9')
            value = value * 16 + static_cast<char32_t>(digit - '0');
        else if (digit >= 'A' && digit <= 'F')
            value = value * 16 + static_cast<char32_t>(digit - 'A' + 10);
        else
            return invalid;
    }
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    return value > 0x10FFFF || isSurrogate ? invalid : value;
}

/// `uni` and groups of four digits. False, and nothing appended, if the part is no such name.
bool AppendUni(std::string_view part, std::u32string& text)
{
    if (part.substr(0, 3) != "uni" || part.size() < 7 || part.size() % 4 != 3)
        return false;
    const std::size_t before = text.size();
    for (std::size_t begin = 3; begin < part.size(); begin += 4) {
        const char32_t codePoint = ReadScalar(part.substr(begin, 4));
        if (codePoint == invalid) {
            text.resize(before);
            return false;
        }
        text += codePoint;
    }
    return true;
}

/// `u` and four to six digits.
bool AppendU(std::string_view part, std::u32string& text)
{
    if (part.size() < 5 || part.size() > 7 || part[0] != 'u')
        return false;
    const char32_t codePoint = ReadScalar(part.substr(1));
    if (codePoint == invalid)
        return false;
    text += codePoint;
    return true;
}

bool AppendListed(const GlyphList& list, std::string_view part, std::u32string& text)
{
    const auto entry = list.Find(part);
    if (!entry)
        return false;
    for (std::string_view codePoints = entry->codePoints; !codePoints.empty();)
        text += TakeCodePoint(codePoints);
    return true;
}

void AppendPart(std::string_view part, bool isDingbat, std::u32string& text)
{
    if (isDingbat && AppendListed(GlyphList::GetDingbats(), part, text))
        return;
    if (!AppendListed(GlyphList::GetAdobe(), part, text) && !AppendUni(part, text))
        AppendU(part, text);
}

struct NamedCodePoint
{
    char32_t codePoint;
    bool isForNewFonts;
    std::string_view name;
};

/// One for each code point, sorted by it.
std::vector<NamedCodePoint> MakeNames()
{
    std::vector<NamedCodePoint> names;
    GlyphList::GetAdobe().Visit([&names](const GlyphList::Entry& entry) {
        std::string_view codePoints = entry.codePoints;
        const char32_t codePoint = TakeCodePoint(codePoints);
        if (codePoints.empty())
            names.push_back({codePoint, entry.isForNewFonts, entry.name});
    });
    std::sort(names.begin(), names.end(), [](const NamedCodePoint& left, const NamedCodePoint& right) {
        return std::make_tuple(left.codePoint, !left.isForNewFonts, left.name.size(), left.name) <
               std::make_tuple(right.codePoint, !right.isForNewFonts, right.name.size(), right.name);
    });
    const auto end = std::unique(names.begin(), names.end(), [](const auto& left, const auto& right) {
        return left.codePoint == right.codePoint;
    });
    names.erase(end, names.end());
    names.shrink_to_fit();
    return names;
}

} // namespace

std::u32string GetTextOfGlyphName(std::string_view name, bool isDingbat)
{
    std::u32string text;
    name = name.substr(0, name.find('.'));
    while (!name.empty()) {
        const std::size_t underscore = std::min(name.find('_'), name.size());
        AppendPart(name.substr(0, underscore), isDingbat, text);
        name.remove_prefix(std::min(underscore + 1, name.size()));
    }
    return text;
}

std::string_view GetGlyphNameOfCodePoint(char32_t codePoint)
{
    static const std::vector<NamedCodePoint> names = MakeNames();
    const auto found =
        std::lower_bound(names.begin(), names.end(), codePoint,
                         [](const NamedCodePoint& left, char32_t right) { return left.codePoint < right; });
    return found != names.end() && found->codePoint == codePoint ? found->name : std::string_view();
}

} // namespace OrvPdf
