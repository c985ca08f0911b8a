#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "pdf/fonts/cmap.h"
#include "pdf/fonts/code_ranges.h"
#include "pdf/fonts/codespace.h"

namespace OrvPdf
{

class RangeCMapBuilder;

/// A CMap that keeps the ranges of its file, and asks the CMap that it is based on for what it lacks itself.
class RangeCMap : public CMap
{
public:
    /// CMaps that stand one on the other; those of the machine have up to three. It bounds what a code can
    /// cost.
    static constexpr unsigned maximalDepth = 8;

    Code Next(std::string_view& bytes) const override
    {
        const Codespace::Match match = codespace.Take(bytes);
        bytes.remove_prefix(match.bytes);
        return {match.value, match.bytes, match.isValid ? FindCid(match.value, match.bytes) : 0};
    }
    OrvFont::WritingMode GetWritingMode() const override { return writingMode; }
    const std::string& GetName() const override { return name; }
    const std::string& GetRegistry() const override { return registry; }
    const std::string& GetOrdering() const override { return ordering; }

    const Codespace& GetCodespace() const { return codespace; }
    /// Of the codes of `bytes` bytes, without those of the CMap that this one is based on.
    const CodeRanges& GetCids(std::uint32_t bytes) const { return cids[bytes - 1]; }
    const std::shared_ptr<const RangeCMap>& GetBase() const { return base; }

private:
    friend class RangeCMapBuilder;

    RangeCMap() = default;
    std::uint32_t FindCid(std::uint32_t code, std::uint32_t bytes) const;

    std::string name;
    std::string registry;
    std::string ordering;
    OrvFont::WritingMode writingMode = OrvFont::WritingMode::Horizontal;
    std::shared_ptr<const RangeCMap> base;
    unsigned depth = 1;
    Codespace codespace;
    std::array<CodeRanges, maximalCodeBytes> cids;
    /// The group of a range is the one CID of all its codes.
    std::array<CodeRanges, maximalCodeBytes> notdefs;
};

/// Finds the CMap that a file names by `usecmap`; null if there is none.
using CMapFinder = std::function<std::shared_ptr<const CMap>(const std::string& name)>;

/// CMap::Parse, with the one who is asked for what the file names by `usecmap`.
std::shared_ptr<const CMap> ParseCMap(std::string_view bytes, std::shared_ptr<const CMap> parent,
                                      const CMapFinder& find, std::string& problem);

} // namespace OrvPdf
