#pragma once

#include <plexa/coordinate_systems.h>

namespace Plexa
{

/// One number in the unit of `System`. A `double` becomes a coordinate of any system without a cast, a
/// coordinate of one system never becomes one of another.
template <typename System>
struct CoordinateBase
{
    double value = 0.0;

    constexpr CoordinateBase() = default;
    constexpr CoordinateBase(double number) : value(number) {}
};

/// Exact: no tolerance, and a NaN equals nothing.
template <typename System>
constexpr bool operator==(const CoordinateBase<System>& left, const CoordinateBase<System>& right)
{
    return left.value == right.value;
}

template <typename System>
constexpr bool operator!=(const CoordinateBase<System>& left, const CoordinateBase<System>& right)
{
    return !(left == right);
}

} // namespace Plexa
