#pragma once

#include <memory>

#include <ft2build.h>
#include FT_OUTLINE_H

#include <orv_font/font.h>

namespace OrvFont::Detail
{

/// The shape of an outline in font units, of which `unitsPerEm` make an em, in thousandths of the em around
/// `origin`, which is in thousandths too. Each contour is one closed subpath in the order of the outline; one
/// of a single point, which marks a place for other glyphs to be attached to, is left out. Quadratic curves
/// become the cubic ones that take the same course (ISO 32000-1, 8.5.2.2 knows no others). Each coordinate is
/// the double next to its exact value. Null for an outline without contours, and for one that contradicts
/// itself.
std::shared_ptr<const Plexa::Compound> MakeCompound(const FT_Outline& outline, unsigned unitsPerEm,
                                                    const Font::Point& origin);

} // namespace OrvFont::Detail
