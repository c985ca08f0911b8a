#pragma once

#include <optional>

#include <plexa/rectangle.h>

namespace OrvPdf
{

/// The corners of a box as a page dictionary holds them, in milli-points.
struct BoxCorners
{
    double left;
    double bottom;
    double right;
    double top;
};

/// Corners from which the same box is read: a file has corners where the model has extents, and the
/// difference of two rounded numbers is rounded again. Bit by bit wherever the distance of two numbers can be
/// the extent; that of a small box far from the origin may not be among them, and comes back rounded as far
/// as the numbers there are apart. Nothing for boxes that can't be written: with a negative extent, or
/// numbers that are not finite.
std::optional<BoxCorners> FindBoxCorners(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box);

} // namespace OrvPdf
