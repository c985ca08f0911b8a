#include <plexa/geometry.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

namespace Plexa
{

namespace
{

using Point = PointBase<MilliPointCoordinateSystem>;
using SubpathList = std::vector<std::shared_ptr<const Subpath>>;

std::shared_ptr<const Subpath>
MapSubpath(const TransformationBase<MilliPointCoordinateSystem>& transformation, const Subpath& subpath)
{
    std::vector<Point> points;
    points.reserve(subpath.GetPoints().size());
    for (const Point& point : subpath.GetPoints())
        points.push_back(MapPoint(transformation, point));
    return std::make_shared<const Subpath>(std::move(points), subpath.GetKinds(), subpath.IsClosed());
}

} // namespace

std::shared_ptr<const Compound>
GetRectangleCompound(const RectangleBase<MilliPointCoordinateSystem>& rectangle)
{
    SubpathList subpaths;
    if (!rectangle.isInitial) {
        const double left = rectangle.origin.x.value;
        const double bottom = rectangle.origin.y.value;
        const double right = left + rectangle.size.width.value;
        const double top = bottom + rectangle.size.height.value;
        std::vector<Point> points{{left, bottom}, {right, bottom}, {right, top}, {left, top}};
        subpaths.push_back(
            std::make_shared<const Subpath>(std::move(points), std::string(3, Subpath::lineKind), true));
    }
    return std::make_shared<const Compound>(std::move(subpaths), WindingRule::NonZero);
}

std::shared_ptr<const Compound>
operator*(const TransformationBase<MilliPointCoordinateSystem>& transformation,
          std::shared_ptr<const Compound> compound) // NOLINT(performance-unnecessary-value-param)
{
    if (!compound)
        return nullptr;
    if (IsIdentity(transformation))
        return std::make_shared<const Compound>(*compound);
    SubpathList subpaths;
    subpaths.reserve(compound->GetSubpaths().size());
    for (const std::shared_ptr<const Subpath>& subpath : compound->GetSubpaths())
        subpaths.push_back(MapSubpath(transformation, *subpath));
    return std::make_shared<const Compound>(std::move(subpaths), compound->GetWindingRule());
}

CoordinateBase<MilliPointCoordinateSystem> GetLength(const PointBase<MilliPointCoordinateSystem>& point)
{
    return std::hypot(point.x.value, point.y.value);
}

} // namespace Plexa
