#include "pdf/fonts/to_unicode.h"

#include "pdf/fonts/codespace.h"
#include "pdf/fonts/utf16.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace OrvPdf
{

namespace
{

/// The most entries between `begin...` and `end...` (Adobe Technical Note #5014).
constexpr std::size_t entriesOfBlock = 100;

struct TextRange
{
    std::uint32_t low;
    std::uint32_t high;
    const std::u16string* text;
};

void AppendHex(std::uint32_t value, std::uint32_t bytes, std::string& out)
{
    for (std::uint32_t shift = 8 * bytes; shift != 0; shift -= 4)
        out += "0123456789ABCDEF"[value >> (shift - 4) & 0xF];
}

void AppendCode(std::uint32_t code, std::uint32_t bytes, std::string& out)
{
    out += '<';
    AppendHex(code, bytes, out);
    out += '>';
}

void AppendText(const std::u16string& text, std::string& out)
{
    out += '<';
    for (const char16_t unit : text)
        AppendHex(unit, 2, out);
    out += '>';
}

/// Whether a range that begins with `first` reaches `text` after `steps` steps. Only the last byte of a text
/// goes on in a range, without a carry.
bool IsReached(const std::u16string& first, const std::u16string& text, std::uint32_t steps)
{
    if (text.size() != first.size() || (first.back() & 0xFFU) + steps > 0xFF)
        return false;
    return text.back() == first.back() + steps && std::equal(text.begin(), text.end() - 1, first.begin());
}

std::vector<TextRange> FindRanges(const std::map<std::uint32_t, std::u16string>& texts, std::uint32_t largest)
{
    std::vector<TextRange> ranges;
    for (const auto& [code, text] : texts) {
        if (code > largest || text.empty())
            continue;
        // Only the last byte of a code goes on in a range, too.
        const bool isNext = !ranges.empty() && code == ranges.back().high + 1 && (code & 0xFF) != 0;
        if (isNext && IsReached(*ranges.back().text, text, code - ranges.back().low))
            ranges.back().high = code;
        else
            ranges.push_back({code, code, &text});
    }
    return ranges;
}

template <typename AppendEntry>
void AppendBlocks(const std::vector<TextRange>& ranges, const char* name, const AppendEntry& appendEntry,
                  std::string& out)
{
    for (std::size_t begin = 0; begin < ranges.size(); begin += entriesOfBlock) {
        const std::size_t end = std::min(begin + entriesOfBlock, ranges.size());
        out += std::to_string(end - begin) + " begin" + name + "\n";
        for (std::size_t i = begin; i < end; ++i) {
            appendEntry(ranges[i]);
            AppendText(*ranges[i].text, out);
            out += '\n';
        }
        out += std::string("end") + name + "\n";
    }
}

} // namespace

std::string MakeToUnicode(const std::map<std::uint32_t, std::u16string>& texts, std::uint32_t codeBytes)
{
    const std::uint32_t bytes = std::clamp<std::uint32_t>(codeBytes, 1, maximalCodeBytes);
    const std::uint32_t largest = LargestCode(bytes);
    std::vector<TextRange> ranges = FindRanges(texts, largest);
    const auto firstRange = std::stable_partition(
        ranges.begin(), ranges.end(), [](const TextRange& range) { return range.low == range.high; });
    const std::vector<TextRange> singles(ranges.begin(), firstRange);
    ranges.erase(ranges.begin(), firstRange);

    std::string out = "/CIDInit /ProcSet findresource begin\n"
                      "12 dict begin\n"
                      "begincmap\n"
                      "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
                      "/CMapName /Adobe-Identity-UCS def\n"
                      "/CMapType 2 def\n"
                      "1 begincodespacerange\n";
    AppendCode(0, bytes, out);
    AppendCode(largest, bytes, out);
    out += "\nendcodespacerange\n";
    AppendBlocks(
        singles, "bfchar", [&](const TextRange& range) { AppendCode(range.low, bytes, out); }, out);
    AppendBlocks(
        ranges, "bfrange",
        [&](const TextRange& range) {
            AppendCode(range.low, bytes, out);
            AppendCode(range.high, bytes, out);
        },
        out);
    out += "endcmap\n"
           "CMapName currentdict /CMap defineresource pop\n"
           "end\n"
           "end\n";
    return out;
}

} // namespace OrvPdf
