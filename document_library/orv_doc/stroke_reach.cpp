#include "orv_doc/stroke_reach.h"

#include <algorithm>
#include <cmath>

namespace OrvDoc::Detail
{

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>
GrowByStroke(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box,
             const StrokeProperties& stroke,
             const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    constexpr double diagonal = 1.4142135623730951; // Of a square with sides of 1.
    double factor = stroke.cap == LineCap::ProjectingSquare ? diagonal : 1.0;
    if (stroke.join == LineJoin::Miter)
        factor = std::max(factor, stroke.miterLimit);
    const double reach = std::abs(stroke.width) / 2.0 * factor;
    // The circle of that radius becomes an ellipse; these are half its width and height.
    const double x = reach * std::hypot(transformation.a, transformation.c);
    const double y = reach * std::hypot(transformation.b, transformation.d);
    if (box.isInitial || !std::isfinite(x) || !std::isfinite(y))
        return box;
    return {box.origin.x.value - x, box.origin.y.value - y, box.size.width.value + 2.0 * x,
            box.size.height.value + 2.0 * y};
}

} // namespace OrvDoc::Detail
