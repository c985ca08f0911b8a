#include <plexa/compound_builder.h>

namespace Plexa
{

void CompoundBuilder::MoveTo(const Point& start)
{
    const bool isLoneMove = points.size() == 1 && !isClosed;
    if (!isLoneMove)
        FinishSubpath();
    points.assign(1, start);
}

bool CompoundBuilder::LineTo(const Point& end)
{
    if (!BeginDrawing())
        return false;
    points.push_back(end);
    kinds += Subpath::lineKind;
    return true;
}

bool CompoundBuilder::CurveTo(const Point& firstControlPoint, const Point& secondControlPoint,
                              const Point& end)
{
    if (!BeginDrawing())
        return false;
    points.push_back(firstControlPoint);
    points.push_back(secondControlPoint);
    points.push_back(end);
    kinds += Subpath::bezierKind;
    return true;
}

bool CompoundBuilder::Close()
{
    if (points.empty())
        return false;
    isClosed = true;
    return true;
}

void CompoundBuilder::AddRectangle(double x, double y, double width, double height)
{
    MoveTo(Point(x, y));
    LineTo(Point(x + width, y));
    LineTo(Point(x + width, y + height));
    LineTo(Point(x, y + height));
    Close();
}

std::optional<CompoundBuilder::Point> CompoundBuilder::GetCurrentPoint() const
{
    if (points.empty())
        return std::nullopt;
    return isClosed ? points.front() : points.back();
}

bool CompoundBuilder::IsEmpty() const
{
    return subpaths.empty() && points.empty();
}

std::shared_ptr<const Compound> CompoundBuilder::Finish(WindingRule rule)
{
    FinishSubpath();
    // Copied, so that the shape has no spare capacity and the builder keeps its own.
    auto compound = std::make_shared<const Compound>(subpaths, rule);
    Clear();
    return compound;
}

void CompoundBuilder::Clear()
{
    subpaths.clear();
    points.clear();
    kinds.clear();
    isClosed = false;
    finishedSegmentCount = 0;
}

bool CompoundBuilder::BeginDrawing()
{
    if (points.empty())
        return false;
    if (isClosed) {
        const Point start = points.front();
        FinishSubpath();
        points.push_back(start);
    }
    return true;
}

void CompoundBuilder::FinishSubpath()
{
    if (points.empty())
        return;
    subpaths.push_back(std::make_shared<const Subpath>(points, kinds, isClosed));
    finishedSegmentCount += kinds.size();
    points.clear();
    kinds.clear();
    isClosed = false;
}

} // namespace Plexa
