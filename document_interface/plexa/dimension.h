#pragma once

#include <plexa/coordinate.h>

namespace Plexa
{

/// A width and a height. Either may be negative, as the steps of a tiling pattern may.
template <typename System>
struct DimensionBase
{
    CoordinateBase<System> width;
    CoordinateBase<System> height;

    constexpr DimensionBase() = default;
    constexpr DimensionBase(CoordinateBase<System> horizontal, CoordinateBase<System> vertical)
        : width(horizontal), height(vertical)
    {}
};

/// Exact: no tolerance, and a NaN equals nothing.
template <typename System>
constexpr bool operator==(const DimensionBase<System>& left, const DimensionBase<System>& right)
{
    return left.width == right.width && left.height == right.height;
}

template <typename System>
constexpr bool operator!=(const DimensionBase<System>& left, const DimensionBase<System>& right)
{
    return !(left == right);
}

} // namespace Plexa
