#pragma once

#include <orv_doc/stroke_properties.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc::Detail
{

/// A box around a shape under a transformation, made larger by as far as a stroke of the shape can reach
/// beyond it: half the line width in the shape's own coordinates, times the miter limit or the diagonal of a
/// projecting cap. An upper bound. An initial box stays as it is, as does any box if the reach is not finite.
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>
GrowByStroke(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box,
             const StrokeProperties& stroke,
             const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation);

} // namespace OrvDoc::Detail
