#include <plexa/subpath.h>

#include <iterator>
#include <utility>

namespace Plexa
{

Subpath::Subpath(std::vector<Point> allPoints, std::string segmentKinds, bool closed)
    : points(std::move(allPoints)), kinds(std::move(segmentKinds)), isClosed(closed)
{}

Subpath::DrawnSegments Subpath::GetDrawnSegments() const
{
    if (kinds.empty())
        return {BeginSegment(), BeginSegment()};
    return {std::next(BeginSegment()), MakeIterator(&points.back(), kinds.size() + 1)};
}

bool operator==(const Subpath& left, const Subpath& right)
{
    return left.IsClosed() == right.IsClosed() && left.GetKinds() == right.GetKinds() &&
           left.GetPoints() == right.GetPoints();
}

bool operator!=(const Subpath& left, const Subpath& right)
{
    return !(left == right);
}

} // namespace Plexa
