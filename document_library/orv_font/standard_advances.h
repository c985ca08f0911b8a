#pragma once

#include <string_view>

#include "orv_font/font_kind.h"

namespace OrvFont::Detail
{

/// The advance of a glyph in the standard font of that kind (ISO 32000-1, 9.6.2.2), in thousandths: what
/// counts where a file names such a font and gives no widths. `advance` is that of the library's font that
/// stands in, and the answer for a glyph that the standard font does not have.
double GetStandardAdvance(const FontKind& kind, std::string_view glyphName, double advance);

} // namespace OrvFont::Detail
