// Any bytes as a CMap file. The input is a line with the hexadecimal digits of a shown string, and the file
// behind it:
//
//     41 8140
//     begincodespacerange <00> <80> <8140> <9FFC> endcodespacerange
//     begincidrange <41> <5A> 1 endcidrange
//
// `/Base usecmap` leads to a small CMap that stands here; other names lead to none.
//
// Laws:
// - each code takes one byte to four, and all codes together the shown string; no CID is beyond the largest;
// - codes and CIDs are those that a plain reader finds, which tries all ranges in turn;
// - the texts that the file gives to the codes come back from a `ToUnicode` CMap that is written of them.

#include "fuzz_target.h"

#include "pdf/fonts/cmap_file.h"
#include "pdf/fonts/codespace.h"
#include "pdf/fonts/range_cmap.h"
#include "pdf/fonts/to_unicode.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvPdf::CMap;
using OrvPdf::CMapCodes;
using OrvPdf::maximalCodeBytes;

constexpr std::int64_t maximalCid = 65535;

/// More would only take time.
constexpr std::size_t maximalShownBytes = 512;
constexpr std::size_t maximalEntries = 4096;

constexpr std::string_view baseFile =
    "begincodespacerange <00> <7F> <C080> <DFBF> <E0000000> <EFFFFFFF> endcodespacerange\n"
    "begincidrange <20> <7E> 1 <C280> <C2BF> 200 <E0000000> <E000FFFF> 300 endcidrange\n"
    "beginnotdefrange <00> <1F> 9 endnotdefrange";

/// The second reader: keeps what a file says as it comes, and looks through all of it for each code.
class PlainMap : public OrvPdf::CMapFileHandler
{
public:
    explicit PlainMap(std::string_view file)
    {
        OrvPdf::CMapProblems problems;
        OrvPdf::ReadCMapFile(file, *this, problems);
        if (!hasBase)
            return;
        const PlainMap base(baseFile);
        codespaces.insert(codespaces.end(), base.codespaces.begin(), base.codespaces.end());
        baseCids = base.cids;
        baseNotdefs = base.notdefs;
    }

    /// Files without a codespace, or with too much for a plain search, are not compared.
    bool IsComparable() const
    {
        return !codespaces.empty() && codespaces.size() <= OrvPdf::Codespace::maximalRanges &&
               cids.size() + notdefs.size() <= maximalEntries;
    }

    CMap::Code Next(std::string_view& bytes) const
    {
        CMap::Code code;
        code.bytes = CountBytes(bytes);
        for (std::uint32_t i = 0; i < code.bytes; ++i)
            code.value = code.value << 8 | static_cast<unsigned char>(bytes[i]);
        if (IsInCodespace(bytes.substr(0, code.bytes)))
            code.cid = FindCid(code);
        bytes.remove_prefix(code.bytes);
        return code;
    }

    void OnCodespace(const CMapCodes& codes) override
    {
        for (std::uint32_t place = 0; place < codes.bytes; ++place) {
            if (ByteAt(codes.low, codes.bytes, place) > ByteAt(codes.high, codes.bytes, place))
                return;
        }
        codespaces.push_back(codes);
    }

    void OnCids(const CMapCodes& codes, std::int64_t cid) override
    {
        if (cid <= maximalCid)
            cids.push_back({codes, cid});
    }

    void OnNotdef(const CMapCodes& codes, std::int64_t cid) override
    {
        if (cid <= maximalCid)
            notdefs.push_back({codes, cid});
    }

    void OnUseCMap(std::string_view name) override { hasBase = hasBase || name == "Base"; }

private:
    struct Entry
    {
        CMapCodes codes;
        std::int64_t cid;
    };

    static std::uint32_t ByteAt(std::uint32_t code, std::uint32_t bytes, std::uint32_t place)
    {
        return code >> (8 * (bytes - 1 - place)) & 0xFF;
    }

    static bool BeginsAlike(const CMapCodes& range, std::string_view bytes, std::uint32_t count)
    {
        for (std::uint32_t place = 0; place < count; ++place) {
            const std::uint32_t byte = static_cast<unsigned char>(bytes[place]);
            if (byte < ByteAt(range.low, range.bytes, place) || byte > ByteAt(range.high, range.bytes, place))
                return false;
        }
        return true;
    }

    bool IsInCodespace(std::string_view code) const
    {
        return std::any_of(codespaces.begin(), codespaces.end(), [code](const CMapCodes& range) {
            return range.bytes == code.size() && BeginsAlike(range, code, range.bytes);
        });
    }

    /// Tries codes of one byte, then of two and so on; failing that, beginnings from the longest to none, and
    /// for each the lengths from the shortest.
    std::uint32_t CountBytes(std::string_view bytes) const
    {
        const auto available =
            static_cast<std::uint32_t>(std::min<std::size_t>(bytes.size(), maximalCodeBytes));
        for (std::uint32_t count = 1; count <= available; ++count) {
            if (IsInCodespace(bytes.substr(0, count)))
                return count;
        }
        for (std::uint32_t matching = available + 1; matching-- > 0;) {
            for (std::uint32_t count = 1; count <= maximalCodeBytes; ++count) {
                for (const CMapCodes& range : codespaces) {
                    if (range.bytes == count && matching <= count && BeginsAlike(range, bytes, matching))
                        return std::min(count, available);
                }
            }
        }
        return available;
    }

    static std::optional<std::uint32_t> FindLast(const std::vector<Entry>& entries, std::uint32_t value,
                                                 std::uint32_t bytes, bool isRising)
    {
        for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
            const std::int64_t step = std::int64_t{value} - entry->codes.low;
            if (entry->codes.bytes != bytes || step < 0 || value > entry->codes.high)
                continue;
            const std::int64_t cid = isRising ? entry->cid + step : entry->cid;
            if (cid <= maximalCid)
                return static_cast<std::uint32_t>(cid);
        }
        return std::nullopt;
    }

    /// Where all codes have the same length, those of other lengths count by their number, after those that
    /// have it.
    std::optional<std::uint32_t> FindOwn(const std::vector<Entry>& entries, const CMap::Code& code,
                                         bool isRising) const
    {
        if (const auto cid = FindLast(entries, code.value, code.bytes, isRising))
            return cid;
        const bool isUniform = std::all_of(codespaces.begin(), codespaces.end(),
                                           [&code](const auto& range) { return range.bytes == code.bytes; });
        for (std::uint32_t bytes = maximalCodeBytes; isUniform && bytes != 0; --bytes) {
            if (const auto cid = FindLast(entries, code.value, bytes, isRising))
                return cid;
        }
        return std::nullopt;
    }

    std::uint32_t FindCid(const CMap::Code& code) const
    {
        std::optional<std::uint32_t> cid = FindOwn(cids, code, true);
        if (!cid)
            cid = FindLast(baseCids, code.value, code.bytes, true);
        if (!cid)
            cid = FindOwn(notdefs, code, false);
        if (!cid)
            cid = FindLast(baseNotdefs, code.value, code.bytes, false);
        return cid.value_or(0);
    }

    bool hasBase = false;
    std::vector<CMapCodes> codespaces;
    std::vector<Entry> cids;
    std::vector<Entry> notdefs;
    std::vector<Entry> baseCids;
    std::vector<Entry> baseNotdefs;
};

std::string ReadShown(std::string_view line)
{
    const std::string text = "<" + std::string(line) + ">";
    OrvPdf::CMapLexer lexer(text);
    return std::string(lexer.Next().text.substr(0, maximalShownBytes));
}

std::shared_ptr<const CMap> ParseWithBase(std::string_view file)
{
    std::string problem;
    const auto base = OrvPdf::ParseCMap(baseFile, nullptr, {}, problem);
    const auto find = [&base](const std::string& name) { return name == "Base" ? base : nullptr; };
    return OrvPdf::ParseCMap(file, nullptr, find, problem);
}

void RequireCodes(std::string_view file, std::string_view shown)
{
    const auto map = ParseWithBase(file);
    const PlainMap plain(file);
    const bool isCompared = plain.IsComparable();
    while (!shown.empty()) {
        std::string_view plainShown = shown;
        const std::size_t before = shown.size();
        const CMap::Code code = map->Next(shown);
        Require(code.bytes >= 1 && code.bytes <= maximalCodeBytes, "a code has one byte to four");
        Require(before - shown.size() == code.bytes, "a code takes its bytes");
        Require(code.cid <= maximalCid, "no CID is beyond the largest");
        if (!isCompared)
            continue;
        const CMap::Code plainCode = plain.Next(plainShown);
        Require(code.bytes == plainCode.bytes, "a code ends where the plain reader says");
        Require(code.value == plainCode.value, "a code is that of the plain reader");
        Require(code.cid == plainCode.cid, "a CID is that of the plain reader");
    }
}

/// A half of a surrogate pair alone could become a pair with what a range makes of its neighbour.
bool IsWhole(const std::u16string& text)
{
    return std::none_of(text.begin(), text.end(),
                        [](char16_t unit) { return unit >= 0xD800 && unit <= 0xDFFF; });
}

void RequireTexts(std::string_view file, std::string_view shown)
{
    const auto map = OrvPdf::ToUnicodeMap::Parse(file);
    for (std::uint32_t bytes = 1; bytes <= maximalCodeBytes; ++bytes) {
        std::map<std::uint32_t, std::u16string> texts;
        for (std::size_t at = 0; at + bytes <= shown.size(); ++at) {
            std::uint32_t code = 0;
            for (std::uint32_t i = 0; i < bytes; ++i)
                code = code << 8 | static_cast<unsigned char>(shown[at + i]);
            const std::u16string text = map->Find(code, bytes);
            if (!text.empty() && IsWhole(text))
                texts[code] = text;
        }
        const auto back = OrvPdf::ToUnicodeMap::Parse(OrvPdf::MakeToUnicode(texts, bytes));
        for (const auto& [code, text] : texts)
            Require(back->Find(code, bytes) == text, "texts come back from the map that is written of them");
    }
}

} // namespace

} // namespace HarrowSupport::Fuzzing

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace HarrowSupport::Fuzzing;

    const std::string bytes(data, data + size);
    const std::string_view input = bytes;
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string shown = ReadShown(input.substr(0, end));
    const std::string_view file = input.substr(std::min(end + 1, input.size()));
    RequireCodes(file, shown);
    RequireTexts(file, shown);
    return 0;
}
