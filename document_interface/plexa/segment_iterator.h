#pragma once

#include <cstddef>

#include <boost/iterator/iterator_facade.hpp>

#include <plexa/segment.h>

namespace Plexa
{

class Subpath;

/// Walks the segments of a subpath in the order that subpath.h describes: the move, the drawn segments, and
/// the implied close if there is one. Every dereference makes a `Segment`; nothing is allocated. It looks
/// into its subpath, which must outlive it.
class ConstSegmentIterator
    : public boost::iterators::iterator_facade<ConstSegmentIterator, const Segment,
                                               boost::bidirectional_traversal_tag, Segment>
{
public:
    /// Stands nowhere; may only be assigned to and compared with another one made this way.
    ConstSegmentIterator() = default;

    /// Whether both stand at the same place of the same subpath.
    bool equal(const ConstSegmentIterator& other) const { return step == other.step && kinds == other.kinds; }

    /// Whether the segment was added by the library to close the subpath. Past the end it means nothing.
    bool IsImplicitlyAddedCloseSegment() const { return step > drawnCount; }

    // For makers of documents.

    /// Whether the segment is the move that begins the subpath. False on all drawn segments.
    bool IsMove() const { return step == 0; }

private:
    friend class boost::iterators::iterator_core_access;
    friend class Subpath;

    using Point = Segment::Point;

    static constexpr char lineKind = 'L';
    static constexpr char bezierKind = 'C';

    static std::size_t GetPointCount(char kind) { return kind == bezierKind ? 3 : 1; }

    ConstSegmentIterator(const Point* startPoint, const Point* endPoint, const char* segmentKinds,
                         std::size_t drawnSegmentCount, std::size_t place)
        : start(startPoint), end(endPoint), kinds(segmentKinds), drawnCount(drawnSegmentCount), step(place)
    {}

    Segment dereference() const
    {
        if (step > drawnCount)
            return Segment::Line(*start);
        if (step > 0 && kinds[step - 1] == bezierKind)
            return Segment::Bezier(end[-2], end[-1], *end);
        return Segment::Line(*end);
    }

    void increment()
    {
        if (step < drawnCount)
            end += GetPointCount(kinds[step]);
        ++step;
    }

    void decrement()
    {
        --step;
        if (step < drawnCount)
            end -= GetPointCount(kinds[step]);
    }

    const Point* start = nullptr;
    /// The end point of the segment stood at; from the implied close on that of the last drawn one.
    const Point* end = nullptr;
    /// One letter a drawn segment. Never shared by two subpaths, so that it tells them apart.
    const char* kinds = nullptr;
    std::size_t drawnCount = 0;
    /// 0 is the move, 1 to `drawnCount` are the drawn segments, `drawnCount` + 1 is the implied close or
    /// past the end, `drawnCount` + 2 is past the end of a closed subpath.
    std::size_t step = 0;
};

} // namespace Plexa
