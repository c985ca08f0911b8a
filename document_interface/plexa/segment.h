#pragma once

#include <plexa/point.h>

namespace Plexa
{

/// One straight line or one cubic Bezier curve. It begins where the segment before it ends; only its own
/// end and control points are part of it. A value of its own: references into it live as long as it does.
class Segment
{
public:
    using Point = PointBase<MilliPointCoordinateSystem>;

    bool IsLine() const { return !isBezier; }
    bool IsBezier() const { return isBezier; }

    const Point& GetEnd() const { return end; }

    /// The control points mean something only if `IsBezier` holds; those of a line are the origin.
    const Point& GetFirstControlPoint() const { return firstControlPoint; }
    const Point& GetSecondControlPoint() const { return secondControlPoint; }

    // For makers of documents.

    static Segment Line(const Point& end) { return Segment(Point(), Point(), end, false); }
    static Segment Bezier(const Point& firstControlPoint, const Point& secondControlPoint, const Point& end)
    {
        return Segment(firstControlPoint, secondControlPoint, end, true);
    }

private:
    Segment(const Point& first, const Point& second, const Point& last, bool bezier)
        : firstControlPoint(first), secondControlPoint(second), end(last), isBezier(bezier)
    {}

    Point firstControlPoint;
    Point secondControlPoint;
    Point end;
    bool isBezier;
};

} // namespace Plexa
