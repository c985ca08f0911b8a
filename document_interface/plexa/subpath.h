#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include <orv_sys/export.h>

#include <plexa/segment_iterator.h>

namespace Plexa
{

/// An immutable run of connected segments: a start point, the segments drawn from it, and whether it was
/// closed by an operator that closes (`h`, `re`, `s`, `b`, `b*`; ISO 32000-1, 8.5.2.1).
///
/// Iteration yields, in this order:
///
/// 1. the move: a line segment that ends in the start point. A segment has no start of its own, so that
///    without it nobody who walks an open subpath would see where it begins, and two subpaths that differ in
///    their start point alone would look alike;
/// 2. the drawn segments, zero-length ones too;
/// 3. if the subpath is closed, a line segment back to the start point that nobody drew:
///    `ConstSegmentIterator::IsImplicitlyAddedCloseSegment` holds for it and for no other. It is there even
///    if the last drawn segment ends in the start point already. A closed subpath is joined at its ends
///    where an open one has caps, so the two must never look alike.
///
/// So a lone `m` has one segment, `m h` has two, and only an empty subpath, which has no start point, has
/// none.
///
/// Storage is one block for the points, and letters for the kinds that need no block of their own up to 15
/// segments: three to ten segments take about 150 to 600 bytes.
class ORV_EXPORT Subpath
{
public:
    using Point = Segment::Point;

    ConstSegmentIterator BeginSegment() const { return MakeIterator(points.data(), 0); }

    /// Past the last segment. Equal to `BeginSegment` for an empty subpath.
    ConstSegmentIterator EndSegment() const
    {
        return points.empty() ? BeginSegment()
                              : MakeIterator(&points.back(), kinds.size() + 1 + (isClosed ? 1 : 0));
    }

    // For makers of documents.

    /// The drawn segments alone, without the move and the implied close, for range-based loops.
    struct DrawnSegments
    {
        ConstSegmentIterator first;
        ConstSegmentIterator last;

        ConstSegmentIterator begin() const { return first; }
        ConstSegmentIterator end() const { return last; }
    };

    static constexpr char lineKind = ConstSegmentIterator::lineKind;
    static constexpr char bezierKind = ConstSegmentIterator::bezierKind;

    /// An empty subpath.
    Subpath() = default;

    /// `allPoints` are the start point and then, for each letter of `segmentKinds`, the end point of a line
    /// (`lineKind`) or the two control points and the end point of a curve (`bezierKind`); the counts must
    /// agree. `CompoundBuilder` is the comfortable way.
    Subpath(std::vector<Point> allPoints, std::string segmentKinds, bool closed);

    bool IsEmpty() const { return points.empty(); }

    /// Must not be called on an empty subpath.
    const Point& GetStart() const { return points.front(); }

    /// Whether an operator closed it. Where the last point lies plays no part.
    bool IsClosed() const { return isClosed; }

    std::size_t GetDrawnSegmentCount() const { return kinds.size(); }
    DrawnSegments GetDrawnSegments() const;

    /// The start point and the points of the drawn segments, in drawing order. Empty for an empty subpath.
    const std::vector<Point>& GetPoints() const { return points; }

    /// One letter a drawn segment: `lineKind` or `bezierKind`.
    const std::string& GetKinds() const { return kinds; }

private:
    ConstSegmentIterator MakeIterator(const Point* end, std::size_t step) const
    {
        return ConstSegmentIterator(points.data(), end, kinds.data(), kinds.size(), step);
    }

    std::vector<Point> points;
    std::string kinds;
    bool isClosed = false;
};

/// Exact equality of start, segments and the closed flag. Linear.
ORV_EXPORT bool operator==(const Subpath& left, const Subpath& right);
ORV_EXPORT bool operator!=(const Subpath& left, const Subpath& right);

} // namespace Plexa
