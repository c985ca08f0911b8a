#pragma once

#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc::Detail
{

/// The box that a picture takes up (ISO 32000-1, 8.9.5.1): one point by one point, mapped.
inline Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>
MapUnitSquare(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    return Plexa::MapRectangle(
        transformation, Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>(0.0, 0.0, 1000.0, 1000.0));
}

} // namespace OrvDoc::Detail
