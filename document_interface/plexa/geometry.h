#pragma once

#include <memory>

#include <orv_sys/export.h>

#include <plexa/compound.h>
#include <plexa/coordinate.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace Plexa
{

/// The outline of the rectangle as one closed subpath: from the origin along the bottom edge, up the right
/// edge, back along the top edge, and the implied close down the left one, as the operator `re` draws it
/// (ISO 32000-1, Table 59). Non-zero winding. A rectangle in its initial state has no outline: the shape
/// has no subpaths.
ORV_EXPORT std::shared_ptr<const Compound>
GetRectangleCompound(const RectangleBase<MilliPointCoordinateSystem>& rectangle);

/// A new shape: the given one with every point mapped. Kinds, order, closed flags and the winding rule stay.
/// The identity keeps every bit and shares the subpaths. Null for null. Linear in the points.
ORV_EXPORT std::shared_ptr<const Compound>
operator*(const TransformationBase<MilliPointCoordinateSystem>& transformation,
          std::shared_ptr<const Compound> compound);

/// The length of the vector from the origin to the point. No overflow on the way. NaN if a coordinate is
/// and the other one is not infinite.
ORV_EXPORT CoordinateBase<MilliPointCoordinateSystem>
GetLength(const PointBase<MilliPointCoordinateSystem>& point);

// For makers of documents.

/// The smallest upright rectangle around what is drawn, tight on the extremes of curves and not on their
/// control points. Initial if there is nothing: a move that nothing follows paints nothing (ISO 32000-1,
/// 8.5.3.1) and takes no part, a closed single point does. A segment with a coordinate that is not finite
/// takes no part either. Allocates nothing.
ORV_EXPORT RectangleBase<MilliPointCoordinateSystem> GetBoundingBox(const Compound& compound);

/// The same of the transformed shape, without making it.
ORV_EXPORT RectangleBase<MilliPointCoordinateSystem>
GetBoundingBox(const Compound& compound,
               const TransformationBase<MilliPointCoordinateSystem>& transformation);

} // namespace Plexa
