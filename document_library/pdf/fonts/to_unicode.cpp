#include "pdf/fonts/to_unicode.h"

#include "pdf/fonts/cmap_file.h"
#include "pdf/fonts/cmap_library.h"
#include "pdf/fonts/code_ranges.h"
#include "pdf/fonts/codespace.h"
#include "pdf/fonts/utf16.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace OrvPdf
{

namespace
{

/// Ranges that a map keeps; more than there are codes of two bytes.
constexpr std::size_t maximalEntries = 1000000;

/// Files of the machine that a map may take texts from by `usecmap`, those that they lead to included.
constexpr unsigned maximalUsedFiles = 8;

using Tables = std::array<CodeRanges, maximalCodeBytes>;

/// Up to where a range goes on that begins with the character: neither beyond the code points nor from
/// characters to halves of surrogate pairs.
char32_t LastOfRange(char32_t first)
{
    if (first < 0xD800)
        return 0xD7FF;
    return first < 0xE000 ? 0xDFFF : 0x10FFFF;
}

/// Keeps a text as what stands before its last character, which is the group of a range, and that character,
/// which is what goes on within a range.
class TextCollector : public CMapFileHandler
{
public:
    void OnTexts(const CMapCodes& codes, const std::u16string& text) override
    {
        if (entries == maximalEntries)
            return;
        ++entries;
        const std::u16string start = text.substr(0, text.size() - CountLastUnits(text));
        const char32_t first = GetCodePoint(std::u16string_view(text).substr(start.size()));
        const std::uint32_t length =
            std::min<std::uint32_t>(codes.high - codes.low, LastOfRange(first) - first);
        tables[codes.bytes - 1].Add({codes.low, codes.low + length, first, GetGroup(start)});
    }

    /// What the file says further on wins over what it takes from here.
    void OnUseCMap(std::string_view name) override
    {
        if (usedFiles == maximalUsedFiles)
            return;
        ++usedFiles;
        CMapProblems problems;
        if (const auto file = CMapLibrary::GetDefault().ReadFile(std::string(name)))
            ReadCMapFile(*file, *this, problems);
    }

    Tables tables;
    std::vector<std::u16string> starts;

private:
    std::uint32_t GetGroup(const std::u16string& start)
    {
        const auto group = groups.emplace(start, static_cast<std::uint32_t>(starts.size()));
        if (group.second)
            starts.push_back(start);
        return group.first->second;
    }

    std::unordered_map<std::u16string, std::uint32_t> groups;
    std::size_t entries = 0;
    unsigned usedFiles = 0;
};

class RangeToUnicodeMap : public ToUnicodeMap
{
public:
    RangeToUnicodeMap(Tables tablesToKeep, std::vector<std::u16string> startsToKeep)
        : tables(std::move(tablesToKeep)), starts(std::move(startsToKeep))
    {}

    std::u16string Find(std::uint32_t code, std::uint32_t codeBytes) const override
    {
        if (codeBytes == 0 || codeBytes > maximalCodeBytes)
            return {};
        if (const CodeRange* const range = tables[codeBytes - 1].Find(code))
            return TextOf(*range, code);
        // Many files write the codes here with more or fewer bytes than the font's codes have.
        for (const CodeRanges& ranges : tables) {
            if (const CodeRange* const range = ranges.Find(code))
                return TextOf(*range, code);
        }
        return {};
    }

private:
    std::u16string TextOf(const CodeRange& range, std::uint32_t code) const
    {
        std::u16string text = starts[range.group];
        AppendUtf16(range.ValueOf(code), text);
        return text;
    }

    Tables tables;
    std::vector<std::u16string> starts;
};

} // namespace

std::shared_ptr<const ToUnicodeMap> ToUnicodeMap::Parse(std::string_view bytes)
{
    TextCollector collector;
    CMapProblems problems;
    ReadCMapFile(bytes, collector, problems);
    for (CodeRanges& ranges : collector.tables)
        ranges.Finish();
    return std::make_shared<RangeToUnicodeMap>(std::move(collector.tables), std::move(collector.starts));
}

} // namespace OrvPdf
