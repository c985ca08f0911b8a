#include "orv_font/cid_table.h"

#include FT_CID_H
#include FT_TRUETYPE_TABLES_H
#include FT_TRUETYPE_TAGS_H

namespace OrvFont::Detail
{

namespace
{

bool IsBareProgram(FT_Face face)
{
    FT_ULong length = 0;
    return FT_Load_Sfnt_Table(face, TTAG_head, 0, nullptr, &length) != 0;
}

} // namespace

CidTable::CidTable(FT_Face face) : isBare(IsBareProgram(face))
{
    FT_Bool isCidKeyed = 0;
    if (FT_Get_CID_Is_Internally_CID_Keyed(face, &isCidKeyed) != 0 || !isCidKeyed)
        return;
    FT_UInt cid = 0;
    for (std::uint32_t glyph = 0; FT_Get_CID_From_Glyph_Index(face, glyph, &cid) == 0; ++glyph) {
        cids.push_back(cid);
        glyphs.emplace(cid, glyph);
    }
}

std::uint32_t CidTable::FindGlyph(std::uint32_t cid) const
{
    const auto found = glyphs.find(cid);
    return found == glyphs.end() ? 0 : found->second;
}

} // namespace OrvFont::Detail
