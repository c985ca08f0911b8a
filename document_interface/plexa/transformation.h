#pragma once

#include <cmath>
#include <cstring>
#include <optional>
#include <type_traits>

#include <plexa/coordinate.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>

namespace Plexa
{

/// A PDF matrix (ISO 32000-1, 8.3.3): a point (x, y) maps to (a x + c y + X, b x + d y + Y), where X and Y
/// are the fields `x` and `y`. `a` to `d` have no unit, `x` and `y` are in the unit of `System`.
/// Default-constructed it is the identity.
template <typename System>
struct TransformationBase
{
    double a = 1.0;
    double b = 0.0;
    double c = 0.0;
    double d = 1.0;
    CoordinateBase<System> x;
    CoordinateBase<System> y;

    constexpr TransformationBase() = default;
    constexpr TransformationBase(double entryA, double entryB, double entryC, double entryD,
                                 CoordinateBase<System> translationX, CoordinateBase<System> translationY)
        : a(entryA), b(entryB), c(entryC), d(entryD), x(translationX), y(translationY)
    {}
};

/// Exact: no tolerance, and a NaN equals nothing.
template <typename System>
constexpr bool operator==(const TransformationBase<System>& left, const TransformationBase<System>& right)
{
    return left.a == right.a && left.b == right.b && left.c == right.c && left.d == right.d &&
           left.x == right.x && left.y == right.y;
}

template <typename System>
constexpr bool operator!=(const TransformationBase<System>& left, const TransformationBase<System>& right)
{
    return !(left == right);
}

// For makers of documents.

/// The matrix that only moves.
template <typename System>
constexpr TransformationBase<System> Translation(CoordinateBase<System> x, CoordinateBase<System> y)
{
    return TransformationBase<System>(1.0, 0.0, 0.0, 1.0, x, y);
}

/// Whether all six numbers are those of the identity bit by bit; a negative zero is not.
template <typename System>
bool IsIdentity(const TransformationBase<System>& transformation)
{
    static_assert(std::is_trivially_copyable_v<TransformationBase<System>>);
    static_assert(sizeof(TransformationBase<System>) == 6 * sizeof(double), "no padding to compare");
    const TransformationBase<System> identity;
    return std::memcmp(&transformation, &identity, sizeof identity) == 0;
}

/// The matrix that applies `inner` first and `outer` after it. The operator `cm` makes the new current
/// matrix from its operands as inner and the old matrix as outer (ISO 32000-1, 8.4.4).
///
/// If one side is the identity bit by bit, the result is the other side bit by bit, with its negative
/// zeros, infinities and NaNs: products with zero would not keep those. Otherwise every number is a sum of
/// products taken in a fixed order, so that equal input gives equal output.
template <typename System>
TransformationBase<System> Concatenate(const TransformationBase<System>& inner,
                                       const TransformationBase<System>& outer)
{
    if (IsIdentity(outer))
        return inner;
    if (IsIdentity(inner))
        return outer;
    return TransformationBase<System>(
        inner.a * outer.a + inner.b * outer.c, inner.a * outer.b + inner.b * outer.d,
        inner.c * outer.a + inner.d * outer.c, inner.c * outer.b + inner.d * outer.d,
        inner.x.value * outer.a + inner.y.value * outer.c + outer.x.value,
        inner.x.value * outer.b + inner.y.value * outer.d + outer.y.value);
}

template <typename System>
constexpr double Determinant(const TransformationBase<System>& transformation)
{
    return transformation.a * transformation.d - transformation.b * transformation.c;
}

/// The matrix that undoes the given one, or nothing if there is none: if the determinant is zero or a
/// number of the result is not finite. The inverse of the identity is the identity bit by bit.
template <typename System>
std::optional<TransformationBase<System>> Inverse(const TransformationBase<System>& transformation)
{
    const TransformationBase<System>& t = transformation;
    if (IsIdentity(t))
        return t;
    const double determinant = Determinant(t);
    if (determinant == 0.0 || !std::isfinite(determinant))
        return std::nullopt;
    const TransformationBase<System> inverse(
        t.d / determinant, -t.b / determinant, -t.c / determinant, t.a / determinant,
        (t.c * t.y.value - t.d * t.x.value) / determinant, (t.b * t.x.value - t.a * t.y.value) / determinant);
    const bool finite = std::isfinite(inverse.a) && std::isfinite(inverse.b) && std::isfinite(inverse.c) &&
                        std::isfinite(inverse.d) && std::isfinite(inverse.x.value) &&
                        std::isfinite(inverse.y.value);
    return finite ? std::optional(inverse) : std::nullopt;
}

/// The image of a place: the translation takes part.
template <typename System>
constexpr PointBase<System> MapPoint(const TransformationBase<System>& transformation,
                                     const PointBase<System>& point)
{
    const TransformationBase<System>& t = transformation;
    return PointBase<System>(t.a * point.x.value + t.c * point.y.value + t.x.value,
                             t.b * point.x.value + t.d * point.y.value + t.y.value);
}

/// The image of a distance: the translation takes no part.
template <typename System>
constexpr PointBase<System> MapVector(const TransformationBase<System>& transformation,
                                      const PointBase<System>& vector)
{
    const TransformationBase<System>& t = transformation;
    return PointBase<System>(t.a * vector.x.value + t.c * vector.y.value,
                             t.b * vector.x.value + t.d * vector.y.value);
}

/// The upright rectangle around the four mapped corners. An initial rectangle stays initial, and the
/// identity returns the rectangle bit by bit.
template <typename System>
RectangleBase<System> MapRectangle(const TransformationBase<System>& transformation,
                                   const RectangleBase<System>& rectangle)
{
    if (rectangle.isInitial || IsIdentity(transformation))
        return rectangle;
    const double right = rectangle.origin.x.value + rectangle.size.width.value;
    const double top = rectangle.origin.y.value + rectangle.size.height.value;
    const PointBase<System> lowerLeft = MapPoint(transformation, rectangle.origin);
    const PointBase<System> upperRight = MapPoint(transformation, PointBase<System>(right, top));
    const PointBase<System> lowerRight =
        MapPoint(transformation, PointBase<System>(right, rectangle.origin.y));
    const PointBase<System> upperLeft = MapPoint(transformation, PointBase<System>(rectangle.origin.x, top));
    return Union(RectangleFromCorners(lowerLeft, upperRight), RectangleFromCorners(lowerRight, upperLeft));
}

} // namespace Plexa
