#pragma once

#include <plexa/coordinate.h>

namespace Plexa
{

/// A place, or the vector from the origin to it. Default-constructed it is the origin.
template <typename System>
struct PointBase
{
    CoordinateBase<System> x;
    CoordinateBase<System> y;

    constexpr PointBase() = default;
    constexpr PointBase(CoordinateBase<System> horizontal, CoordinateBase<System> vertical)
        : x(horizontal), y(vertical)
    {}
};

/// Exact: no tolerance, and a NaN equals nothing.
template <typename System>
constexpr bool operator==(const PointBase<System>& left, const PointBase<System>& right)
{
    return left.x == right.x && left.y == right.y;
}

template <typename System>
constexpr bool operator!=(const PointBase<System>& left, const PointBase<System>& right)
{
    return !(left == right);
}

} // namespace Plexa
