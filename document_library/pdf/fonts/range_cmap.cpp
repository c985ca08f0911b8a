#include "pdf/fonts/range_cmap.h"

#include "pdf/fonts/cmap_file.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace OrvPdf
{

namespace
{

/// ISO 32000-1, annex C.2.
constexpr std::int64_t maximalCid = 65535;

/// Entries that a CMap keeps. The largest ones of the machine have some 20 000, and no more codes than this
/// can differ in their CIDs fifteen times over.
constexpr std::size_t maximalEntries = 1000000;

} // namespace

std::uint32_t RangeCMap::FindCid(std::uint32_t code, std::uint32_t bytes) const
{
    const std::size_t table = bytes - 1;
    for (const RangeCMap* map = this; map; map = map->base.get()) {
        if (const CodeRange* const range = map->cids[table].Find(code))
            return range->ValueOf(code);
    }
    for (const RangeCMap* map = this; map; map = map->base.get()) {
        if (const CodeRange* const range = map->notdefs[table].Find(code))
            return range->group;
    }
    return 0;
}

/// Makes a RangeCMap of what its file says.
class RangeCMapBuilder : public CMapFileHandler
{
public:
    RangeCMapBuilder(CMapProblems& problemsToFill, const CMapFinder& finder)
        : problems(problemsToFill), find(finder), map(new RangeCMap)
    {}

    void SetBase(const std::shared_ptr<const CMap>& base)
    {
        auto ranges = std::dynamic_pointer_cast<const RangeCMap>(base);
        if (!ranges)
            return;
        if (ranges->depth >= RangeCMap::maximalDepth) {
            problems.Add("usecmap leads through too many CMaps");
            return;
        }
        map->depth = ranges->depth + 1;
        map->base = std::move(ranges);
    }

    std::shared_ptr<const RangeCMap> Finish()
    {
        FinishCodespace();
        if (const std::uint32_t bytes = map->codespace.GetUniformBytes()) {
            MoveToLength(map->cids, bytes);
            MoveToLength(map->notdefs, bytes);
        }
        for (auto* const tables : {&map->cids, &map->notdefs}) {
            for (CodeRanges& ranges : *tables)
                ranges.Finish();
        }
        return std::move(map);
    }

    void OnCodespace(const CMapCodes& codes) override
    {
        if (!map->codespace.Add({codes.bytes, codes.low, codes.high}))
            problems.Add("begincodespacerange has an empty range or too many");
    }

    void OnCids(const CMapCodes& codes, std::int64_t cid) override
    {
        if (!HasRoomFor(cid))
            return;
        const auto room = static_cast<std::uint32_t>(maximalCid - cid);
        if (codes.high - codes.low > room)
            problems.Add("a range of codes leads beyond the largest CID");
        const std::uint32_t high = codes.low + std::min(codes.high - codes.low, room);
        map->cids[codes.bytes - 1].Add({codes.low, high, static_cast<std::uint32_t>(cid), 0});
    }

    void OnNotdef(const CMapCodes& codes, std::int64_t cid) override
    {
        if (HasRoomFor(cid))
            map->notdefs[codes.bytes - 1].Add({codes.low, codes.high, 0, static_cast<std::uint32_t>(cid)});
    }

    void OnUseCMap(std::string_view name) override
    {
        if (map->base)
            return;
        const auto base = find(std::string(name));
        if (!base)
            problems.Add("usecmap names an unknown CMap");
        SetBase(base);
    }

    void OnEntry(std::string_view key, const CMapToken& value) override
    {
        const bool isString = value.kind == CMapToken::Kind::String;
        if (key == "WMode" && value.kind == CMapToken::Kind::Number)
            map->writingMode =
                value.number == 1 ? OrvFont::WritingMode::Vertical : OrvFont::WritingMode::Horizontal;
        else if (key == "CMapName" && value.kind == CMapToken::Kind::Name)
            map->name = value.text;
        else if (key == "Registry" && isString)
            map->registry = value.text;
        else if (key == "Ordering" && isString)
            map->ordering = value.text;
    }

private:
    bool HasRoomFor(std::int64_t cid)
    {
        if (cid > maximalCid) {
            problems.Add("a CID is beyond the largest one");
            return false;
        }
        if (entries == maximalEntries) {
            problems.Add("there are too many ranges of codes");
            return false;
        }
        ++entries;
        return true;
    }

    void FinishCodespace()
    {
        Codespace& codespace = map->codespace;
        if (map->base) {
            for (const Codespace::Range& range : map->base->codespace.GetRanges())
                codespace.Add(range);
        }
        if (codespace.GetRanges().empty()) {
            problems.Add("there is no codespace range");
            const std::uint32_t bytes = GuessBytes();
            codespace.Add({bytes, 0, LargestCode(bytes)});
        }
        codespace.Finish();
    }

    /// What the ranges have if all agree, else what most composite fonts have.
    std::uint32_t GuessBytes() const
    {
        const auto isUsed = [](const CodeRanges& ranges) { return !ranges.IsEmpty(); };
        const auto used = std::find_if(map->cids.begin(), map->cids.end(), isUsed);
        const bool isOnly = std::count_if(map->cids.begin(), map->cids.end(), isUsed) == 1;
        return isOnly ? static_cast<std::uint32_t>(used - map->cids.begin()) + 1 : 2;
    }

    /// Files that write their codes with more or fewer digits than the codespace has mean the number. Where
    /// all codes have one length, it cannot be taken for another one.
    static void MoveToLength(std::array<CodeRanges, maximalCodeBytes>& tables, std::uint32_t bytes)
    {
        CodeRanges moved;
        for (std::uint32_t other = 1; other <= maximalCodeBytes; ++other) {
            if (other == bytes)
                continue;
            for (const CodeRange& range : tables[other - 1].GetAll()) {
                if (range.low <= LargestCode(bytes))
                    moved.Add(range);
            }
            tables[other - 1] = CodeRanges();
        }
        if (moved.IsEmpty())
            return;
        for (const CodeRange& range : tables[bytes - 1].GetAll())
            moved.Add(range);
        tables[bytes - 1] = std::move(moved);
    }

    CMapProblems& problems;
    const CMapFinder& find;
    std::shared_ptr<RangeCMap> map;
    std::size_t entries = 0;
};

std::shared_ptr<const CMap> ParseCMap(std::string_view bytes, std::shared_ptr<const CMap> parent,
                                      const CMapFinder& find, std::string& problem)
{
    CMapProblems problems;
    RangeCMapBuilder builder(problems, find);
    builder.SetBase(parent);
    ReadCMapFile(bytes, builder, problems);
    std::shared_ptr<const CMap> map = builder.Finish();
    problem = problems.GetText();
    return map;
}

} // namespace OrvPdf
