#include <plexa/geometry.h>

#include <algorithm>
#include <cmath>

namespace Plexa
{

namespace
{

using Point = PointBase<MilliPointCoordinateSystem>;
using Rectangle = RectangleBase<MilliPointCoordinateSystem>;
using Transformation = TransformationBase<MilliPointCoordinateSystem>;

bool IsFinite(const Point& point)
{
    return std::isfinite(point.x.value) && std::isfinite(point.y.value);
}

struct Range
{
    double lower = 0.0;
    double upper = 0.0;

    void Include(double value)
    {
        lower = std::min(lower, value);
        upper = std::max(upper, value);
    }

    bool Contains(double value) const { return lower <= value && value <= upper; }
};

double EvaluateBezier(double start, double first, double second, double end, double t)
{
    const auto between = [t](double from, double to) { return from + t * (to - from); };
    const double left = between(start, first);
    const double middle = between(first, second);
    const double right = between(second, end);
    return between(between(left, middle), between(middle, right));
}

/// Adds the extremes inside a curve on one axis; its ends are in the range already.
void IncludeExtremes(Range& range, double start, double first, double second, double end)
{
    if (range.Contains(first) && range.Contains(second))
        return;
    // A third of the derivative is squareTerm t^2 + 2 halfLinearTerm t + constantTerm.
    const double constantTerm = first - start;
    const double halfLinearTerm = (second - first) - constantTerm;
    const double squareTerm = (end - second) - (second - first) - halfLinearTerm;
    const double discriminant = halfLinearTerm * halfLinearTerm - squareTerm * constantTerm;
    if (!std::isfinite(discriminant)) {
        // Too large to solve; the control points enclose the curve.
        range.Include(first);
        range.Include(second);
        return;
    }
    if (discriminant < 0.0)
        return;
    // Neither root is taken from a difference of nearly equal numbers this way, and a square term of zero
    // needs no case of its own: it makes the first quotient infinite or NaN.
    const double pivot = -(halfLinearTerm + std::copysign(std::sqrt(discriminant), halfLinearTerm));
    for (const double t : {pivot / squareTerm, constantTerm / pivot}) {
        if (t > 0.0 && t < 1.0)
            range.Include(EvaluateBezier(start, first, second, end, t));
    }
}

class BoundingBox
{
public:
    void IncludePoint(const Point& point)
    {
        if (!IsFinite(point))
            return;
        if (isEmpty) {
            horizontal = {point.x.value, point.x.value};
            vertical = {point.y.value, point.y.value};
            isEmpty = false;
            return;
        }
        horizontal.Include(point.x.value);
        vertical.Include(point.y.value);
    }

    void IncludeLine(const Point& start, const Point& end)
    {
        if (!IsFinite(start) || !IsFinite(end))
            return;
        IncludePoint(start);
        IncludePoint(end);
    }

    void IncludeBezier(const Point& start, const Point& first, const Point& second, const Point& end)
    {
        if (!IsFinite(start) || !IsFinite(first) || !IsFinite(second) || !IsFinite(end))
            return;
        IncludePoint(start);
        IncludePoint(end);
        IncludeExtremes(horizontal, start.x.value, first.x.value, second.x.value, end.x.value);
        IncludeExtremes(vertical, start.y.value, first.y.value, second.y.value, end.y.value);
    }

    Rectangle Get() const
    {
        if (isEmpty)
            return Rectangle();
        return RectangleFromCorners(Point(horizontal.lower, vertical.lower),
                                    Point(horizontal.upper, vertical.upper));
    }

private:
    Range horizontal;
    Range vertical;
    bool isEmpty = true;
};

template <typename MapFunction>
void IncludeSubpath(BoundingBox& box, const Subpath& subpath, MapFunction map)
{
    if (subpath.IsEmpty())
        return;
    const Point start = map(subpath.GetStart());
    if (subpath.GetDrawnSegmentCount() == 0 && subpath.IsClosed())
        box.IncludePoint(start);
    // An implied close runs between two points that are in the box already, if they are finite.
    Point current = start;
    for (const Segment& segment : subpath.GetDrawnSegments()) {
        const Point end = map(segment.GetEnd());
        if (segment.IsBezier()) {
            box.IncludeBezier(current, map(segment.GetFirstControlPoint()),
                              map(segment.GetSecondControlPoint()), end);
        } else {
            box.IncludeLine(current, end);
        }
        current = end;
    }
}

template <typename MapFunction>
Rectangle GetMappedBoundingBox(const Compound& compound, MapFunction map)
{
    BoundingBox box;
    for (const std::shared_ptr<const Subpath>& subpath : compound.GetSubpaths())
        IncludeSubpath(box, *subpath, map);
    return box.Get();
}

} // namespace

Rectangle GetBoundingBox(const Compound& compound)
{
    return GetMappedBoundingBox(compound, [](const Point& point) { return point; });
}

Rectangle GetBoundingBox(const Compound& compound, const Transformation& transformation)
{
    if (IsIdentity(transformation))
        return GetBoundingBox(compound);
    return GetMappedBoundingBox(compound,
                                [&](const Point& point) { return MapPoint(transformation, point); });
}

} // namespace Plexa
