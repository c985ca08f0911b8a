#pragma once

#include <plexa/dimension.h>
#include <plexa/point.h>

namespace Plexa
{

/// An upright rectangle: `origin` is its left and bottom edge, the right edge is x + width and the top edge
/// y + height. A default-constructed rectangle is in its initial state: it was never given a value, and its
/// numbers mean nothing. One made from values is not, whatever the values are.
template <typename System>
struct RectangleBase
{
    PointBase<System> origin;
    DimensionBase<System> size;
    bool isInitial = true;

    constexpr RectangleBase() = default;
    constexpr RectangleBase(PointBase<System> lowerLeft, DimensionBase<System> extent, bool neverSet = false)
        : origin(lowerLeft), size(extent), isInitial(neverSet)
    {}
    constexpr RectangleBase(CoordinateBase<System> x, CoordinateBase<System> y, CoordinateBase<System> width,
                            CoordinateBase<System> height)
        : origin(x, y), size(width, height), isInitial(false)
    {}
};

/// Exact on the four numbers and on the flag; a NaN equals nothing. The numbers count in the initial state
/// too, where they are zero unless somebody wrote to them.
template <typename System>
constexpr bool operator==(const RectangleBase<System>& left, const RectangleBase<System>& right)
{
    return left.origin == right.origin && left.size == right.size && left.isInitial == right.isInitial;
}

template <typename System>
constexpr bool operator!=(const RectangleBase<System>& left, const RectangleBase<System>& right)
{
    return !(left == right);
}

// For makers of documents.

/// The rectangle between two opposite corners in any order, as PDF permits them (ISO 32000-1, 7.9.5): its
/// width and height are not negative. The right and top edge are kept to one rounding of a difference and a
/// sum. A NaN among the corners is kept.
template <typename System>
constexpr RectangleBase<System> RectangleFromCorners(const PointBase<System>& one,
                                                     const PointBase<System>& other)
{
    const bool swapX = other.x.value < one.x.value;
    const bool swapY = other.y.value < one.y.value;
    const double left = swapX ? other.x.value : one.x.value;
    const double right = swapX ? one.x.value : other.x.value;
    const double bottom = swapY ? other.y.value : one.y.value;
    const double top = swapY ? one.y.value : other.y.value;
    return RectangleBase<System>(left, bottom, right - left, top - bottom);
}

/// The smallest rectangle around both. A rectangle in its initial state adds nothing, so that an initial
/// one is the start of a running union. Negative widths and heights are put in order first.
template <typename System>
constexpr RectangleBase<System> Union(const RectangleBase<System>& first, const RectangleBase<System>& second)
{
    if (first.isInitial)
        return second;
    if (second.isInitial || first == second)
        return first;
    const auto lower = [](double origin, double extent) { return extent < 0.0 ? origin + extent : origin; };
    const auto upper = [](double origin, double extent) { return extent < 0.0 ? origin : origin + extent; };
    const auto smaller = [](double one, double other) { return other < one ? other : one; };
    const auto larger = [](double one, double other) { return one < other ? other : one; };
    const double left = smaller(lower(first.origin.x.value, first.size.width.value),
                                lower(second.origin.x.value, second.size.width.value));
    const double right = larger(upper(first.origin.x.value, first.size.width.value),
                                upper(second.origin.x.value, second.size.width.value));
    const double bottom = smaller(lower(first.origin.y.value, first.size.height.value),
                                  lower(second.origin.y.value, second.size.height.value));
    const double top = larger(upper(first.origin.y.value, first.size.height.value),
                              upper(second.origin.y.value, second.size.height.value));
    return RectangleBase<System>(left, bottom, right - left, top - bottom);
}

} // namespace Plexa
