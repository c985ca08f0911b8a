#pragma once

#include <plexa/coordinate_systems.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>

#include <cmath>

namespace HarrowSupport::Comparators
{

/// How far two coordinates of a shape may be apart, in milli-points. A file that keeps two or three digits
/// behind the point moves a coordinate by less.
constexpr double coordinateTolerance = 30.0;

/// Whether two coordinates are closer than the tolerance. The squares are compared, so a NaN is close to
/// nothing.
inline bool CoordinatesMatch(double left, double right)
{
    const double difference = left - right;
    return coordinateTolerance * coordinateTolerance > difference * difference;
}

template <typename System>
bool PointsMatch(const Plexa::PointBase<System>& left, const Plexa::PointBase<System>& right)
{
    return CoordinatesMatch(left.x.value, right.x.value) && CoordinatesMatch(left.y.value, right.y.value);
}

/// How far two edges or radii may be apart, in milli-points: a rounding to whole milli-points on the way
/// through a file may move either edge of a box by one.
constexpr double edgeTolerance = 1.1;

/// Whether two edges or radii are closer than the tolerance. A NaN is close to nothing.
inline bool EdgesMatch(double left, double right)
{
    return std::fabs(left - right) < edgeTolerance;
}

/// Whether all four edges of two rectangles in milli-points match. Whether a rectangle is in its initial
/// state plays no part.
inline bool AllEdgesMatch(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& left,
                          const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& right)
{
    return EdgesMatch(left.origin.y.value + left.size.height.value,
                      right.origin.y.value + right.size.height.value) &&
           EdgesMatch(left.origin.y.value, right.origin.y.value) &&
           EdgesMatch(left.origin.x.value, right.origin.x.value) &&
           EdgesMatch(left.origin.x.value + left.size.width.value,
                      right.origin.x.value + right.size.width.value);
}

} // namespace HarrowSupport::Comparators
