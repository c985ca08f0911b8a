#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include <ft2build.h>
#include FT_FREETYPE_H

namespace OrvFont::Detail
{

/// Which CID each glyph of a CID-keyed CFF program has (ISO 32000-1, 9.7.4.2). Immutable; empty for a program
/// of another kind.
class CidTable
{
public:
    CidTable() = default;
    explicit CidTable(FT_Face face);

    bool IsEmpty() const { return cids.empty(); }
    std::uint32_t GetGlyphCount() const { return static_cast<std::uint32_t>(cids.size()); }
    /// Zero for one that no glyph has.
    std::uint32_t FindGlyph(std::uint32_t cid) const;

    /// FreeType's number of a glyph that is there: it counts the glyphs of a bare program by CIDs, those in
    /// an OpenType wrapping by their order.
    std::uint32_t GetFreeTypeIndex(std::uint32_t glyph) const { return isBare ? cids[glyph] : glyph; }

private:
    bool isBare = false;
    std::vector<std::uint32_t> cids;
    std::unordered_map<std::uint32_t, std::uint32_t> glyphs;
};

} // namespace OrvFont::Detail
