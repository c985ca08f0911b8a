#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

#include <orv_font/font.h>

namespace OrvFont::Detail
{

/// The names that a font program gives itself, in UTF-8: PostScript name, family and style of its name table
/// (entries 6, 1 and 2) or of its Type 1 or CFF dictionaries, English ones first. What it does not say is
/// derived from its PostScript name; without one of those all may be empty.
Font::Names ReadNames(FT_Face face);

} // namespace OrvFont::Detail
