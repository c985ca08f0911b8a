// Order of steps: the winding rule, then the outline, subpath by subpath and segment by segment, both in
// their final position on the page; what is told of a different outline are the shapes as they were given.

#include "path_comparison.h"

#include "compare_or_report.h"
#include "coordinate_equality.h"
#include "text_stream.h"

#include <orv_doc/path.h>
#include <plexa/compound.h>
#include <plexa/geometry.h>
#include <plexa/segment.h>
#include <plexa/segment_iterator.h>
#include <plexa/subpath.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace HarrowSupport::Comparators
{

namespace
{

using SubpathPointer = std::shared_ptr<const Plexa::Subpath>;

std::string Print(const std::shared_ptr<const Plexa::Compound>& compound)
{
    TextStream text;
    text << compound;
    return text.str();
}

/// Whether two numbers have the same bits, and so the same text.
bool SameBits(const Plexa::PointBase<Plexa::MilliPointCoordinateSystem>& left,
              const Plexa::PointBase<Plexa::MilliPointCoordinateSystem>& right)
{
    return std::memcmp(&left.x.value, &right.x.value, sizeof left.x.value) == 0 &&
           std::memcmp(&left.y.value, &right.y.value, sizeof left.y.value) == 0;
}

bool SameSegments(const Plexa::Segment& left, const Plexa::Segment& right)
{
    if (left.IsLine() != right.IsLine() || left.IsBezier() != right.IsBezier() ||
        !SameBits(left.GetEnd(), right.GetEnd()))
        return false;
    return !left.IsBezier() || (SameBits(left.GetFirstControlPoint(), right.GetFirstControlPoint()) &&
                                SameBits(left.GetSecondControlPoint(), right.GetSecondControlPoint()));
}

/// Walks two subpaths in step and returns whether they end together and all segments satisfy the test.
template <typename Test>
bool AllSegments(const Plexa::Subpath& left, const Plexa::Subpath& right, Test test)
{
    Plexa::ConstSegmentIterator leftSegment = left.BeginSegment();
    Plexa::ConstSegmentIterator rightSegment = right.BeginSegment();
    const Plexa::ConstSegmentIterator leftEnd = left.EndSegment();
    const Plexa::ConstSegmentIterator rightEnd = right.EndSegment();
    for (; leftSegment != leftEnd && rightSegment != rightEnd; ++leftSegment, ++rightSegment) {
        if (leftSegment.IsImplicitlyAddedCloseSegment() != rightSegment.IsImplicitlyAddedCloseSegment())
            return false;
        if (!test(*leftSegment, *rightSegment))
            return false;
    }
    return leftSegment == leftEnd && rightSegment == rightEnd;
}

template <typename Test>
bool AllSubpaths(const Plexa::Compound& left, const Plexa::Compound& right, Test test)
{
    const std::vector<SubpathPointer>& leftSubpaths = left.GetSubpaths();
    const std::vector<SubpathPointer>& rightSubpaths = right.GetSubpaths();
    return std::equal(
        leftSubpaths.begin(), leftSubpaths.end(), rightSubpaths.begin(), rightSubpaths.end(),
        [&test](const SubpathPointer& one, const SubpathPointer& other) { return test(*one, *other); });
}

bool SegmentsMatch(const Plexa::Segment& left, const Plexa::Segment& right)
{
    if (!PointsMatch(left.GetEnd(), right.GetEnd()))
        return false;
    if (left.IsLine() && right.IsLine())
        return true;
    return left.IsBezier() && right.IsBezier() &&
           PointsMatch(left.GetFirstControlPoint(), right.GetFirstControlPoint()) &&
           PointsMatch(left.GetSecondControlPoint(), right.GetSecondControlPoint());
}

/// Whether two shapes are one and the same bit by bit.
bool AreSameShape(const Plexa::Compound& left, const Plexa::Compound& right)
{
    return left.GetWindingRule() == right.GetWindingRule() &&
           AllSubpaths(left, right, [](const Plexa::Subpath& one, const Plexa::Subpath& other) {
               return AllSegments(one, other, SameSegments);
           });
}

} // namespace

void ComparePath(ComparisonContext&, DifferenceScope<OrvDoc::ContentObject>& scope)
{
    const auto& left = static_cast<const OrvDoc::Path&>(*scope.left);
    const auto& right = static_cast<const OrvDoc::Path&>(*scope.right);
    // Shapes that were given alike have the same winding rule and the same text, so nothing could be reported
    // wherever they come to lie. That spares making the shapes in their final position for every equal pair.
    if (AreSameShape(*left.DefiningCompound(), *right.DefiningCompound()))
        return;
    // Held, since a path may keep no more than the last shape that it was asked for.
    const std::shared_ptr<const Plexa::Compound> leftShape = left.TransformedCompound(nullptr);
    const std::shared_ptr<const Plexa::Compound> rightShape = right.TransformedCompound(nullptr);
    if (leftShape->GetWindingRule() != rightShape->GetWindingRule())
        scope.AddValues("ObjectWindingRule", leftShape->GetWindingRule(), rightShape->GetWindingRule());
    if (CompareCompounds(*leftShape, *rightShape))
        return;
    CompareOrReport(scope, "ObjectShape", Print(left.DefiningCompound()), Print(right.DefiningCompound()));
}

bool CompareCompounds(const Plexa::Compound& left, const Plexa::Compound& right)
{
    return AllSubpaths(left, right, CompareSubpaths);
}

bool CompareSubpaths(const Plexa::Subpath& left, const Plexa::Subpath& right)
{
    return AllSegments(left, right, SegmentsMatch);
}

} // namespace HarrowSupport::Comparators
