#pragma once

#include <plexa/point.h>

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

} // namespace HarrowSupport::Comparators
