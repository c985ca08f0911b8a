#pragma once

#include <qpdf/QPDFObjectHandle.hh>

#include <plexa/coordinate_systems.h>
#include <plexa/rectangle.h>

namespace OrvPdf
{

/// The array of a rectangle (ISO 32000-1, 7.9.5), in points, from which the same rectangle is read. Null for
/// one that a file can't say: with a negative extent, or numbers that are not finite.
QPDFObjectHandle MakeBoxObject(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box);

} // namespace OrvPdf
