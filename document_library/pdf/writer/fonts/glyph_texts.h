#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "pdf/writer/fonts/font_subset.h"

namespace OrvFont::Detail
{
class FontProgram;
}

namespace OrvPdf
{

/// The texts of glyphs in UTF-16.
using GlyphTexts = std::map<std::uint32_t, std::u16string>;

/// What each of the glyphs stands for, by the program's table of code points, and where that says nothing by
/// the glyph's name. A glyph without both is left out. Of several code points that share a glyph the plainest
/// counts: a space is a space, not one that does not break.
GlyphTexts ReadGlyphTexts(const OrvFont::Detail::FontProgram& program, const GlyphSet& glyphs);

} // namespace OrvPdf
