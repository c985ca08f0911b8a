#include "pdf/writer/content/path_operators.h"

#include <cmath>
#include <cstring>

#include <plexa/compound.h>
#include <plexa/subpath.h>

#include "pdf/matrix_numbers.h"
#include "pdf/writer/content/content_text.h"

namespace OrvPdf
{

namespace
{

using Point = Plexa::Subpath::Point;

void AppendPoint(std::string& out, const Point& point)
{
    AppendLength(out, point.x.value);
    out.push_back(' ');
    AppendLength(out, point.y.value);
    out.push_back(' ');
}

void AppendOperator(std::string& out, char name)
{
    out.push_back(name);
    out.push_back('\n');
}

bool AreIdentical(const Point& left, const Point& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

bool HasOnlyFinitePoints(const Plexa::Subpath& subpath)
{
    // A sum of products with zero is zero unless an operand is infinite or not a number.
    double sum = 0;
    for (const Point& point : subpath.GetPoints()) {
        sum += point.x.value * 0.0 + point.y.value * 0.0;
    }
    return sum == 0;
}

/// A length that leads from `from` exactly to `to`, of few digits if there is one; false if there is none.
bool FindExtent(double from, double to, double& extent)
{
    const double difference = to - from;
    // The difference of two rounded numbers has digits that the number behind it did not have.
    const double rounded = std::round(difference * 1e4) / 1e4;
    for (const double candidate : {rounded, difference}) {
        if (OrvPdf::AreIdentical(from + candidate, to)) {
            extent = candidate;
            return std::isfinite(candidate);
        }
    }
    return false;
}

bool AppendRectangle(std::string& out, const Plexa::Subpath& subpath)
{
    const std::vector<Point>& points = subpath.GetPoints();
    if (!subpath.IsClosed() || points.size() != 4 || subpath.GetKinds().size() != 3) {
        return false;
    }
    const Point& start = points[0];
    const Point& opposite = points[2];
    if (!AreIdentical(points[1], Point(opposite.x, start.y)) ||
        !AreIdentical(points[3], Point(start.x, opposite.y))) {
        return false;
    }
    double width = 0;
    double height = 0;
    if (!FindExtent(start.x.value, opposite.x.value, width) ||
        !FindExtent(start.y.value, opposite.y.value, height)) {
        return false;
    }
    AppendPoint(out, start);
    AppendPoint(out, Point(width, height));
    out.append("re\n");
    return true;
}

void AppendSegments(std::string& out, const Plexa::Subpath& subpath)
{
    const Point* current = subpath.GetPoints().data();
    for (const char kind : subpath.GetKinds()) {
        if (kind == Plexa::Subpath::lineKind) {
            AppendPoint(out, *++current);
            AppendOperator(out, 'l');
            continue;
        }
        const Point* const points = current + 1;
        const bool isFirstImplied = AreIdentical(points[0], *current);
        const bool isSecondImplied = !isFirstImplied && AreIdentical(points[1], points[2]);
        if (!isFirstImplied) {
            AppendPoint(out, points[0]);
        }
        if (!isSecondImplied) {
            AppendPoint(out, points[1]);
        }
        AppendPoint(out, points[2]);
        AppendOperator(out, isFirstImplied ? 'v' : isSecondImplied ? 'y' : 'c');
        current += 3;
    }
}

} // namespace

PathLosses AppendPath(std::string& out, const Plexa::Compound& compound)
{
    PathLosses losses;
    for (const auto& subpath : compound.GetSubpaths()) {
        losses.notFinite = losses.notFinite || !HasOnlyFinitePoints(*subpath);
    }
    losses.empty = true;
    if (losses.notFinite) {
        return losses;
    }
    const auto& subpaths = compound.GetSubpaths();
    for (std::size_t index = 0; index < subpaths.size(); ++index) {
        const Plexa::Subpath& subpath = *subpaths[index];
        const bool isLoneMove = subpath.GetDrawnSegmentCount() == 0 && !subpath.IsClosed();
        if (subpath.IsEmpty() || (isLoneMove && index + 1 < subpaths.size())) {
            losses.leftOut = true;
            continue;
        }
        losses.empty = false;
        if (AppendRectangle(out, subpath)) {
            continue;
        }
        AppendPoint(out, subpath.GetStart());
        AppendOperator(out, 'm');
        AppendSegments(out, subpath);
        if (subpath.IsClosed()) {
            out.append("h\n");
        }
    }
    return losses;
}

} // namespace OrvPdf
