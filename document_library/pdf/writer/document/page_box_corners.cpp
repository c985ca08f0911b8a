#include "pdf/writer/document/page_box_corners.h"

#include <cmath>
#include <limits>

namespace OrvPdf
{

namespace
{

constexpr double infinity = std::numeric_limits<double>::infinity();

/// A number whose difference to `from` is exactly `extent`, or the nearest one.
std::optional<double> FindEnd(double from, double extent)
{
    if (!std::isfinite(from) || !std::isfinite(extent) || extent < 0 || !std::isfinite(from + extent)) {
        return std::nullopt;
    }
    const double sum = from + extent;
    if (sum - from == extent) {
        return sum;
    }
    // A few digits may be all that the number had before it was rounded.
    const double rounded = std::round(sum * 1e4) / 1e4;
    if (rounded - from == extent) {
        return rounded;
    }
    double above = sum;
    double below = sum;
    constexpr int neighbours = 4;
    for (int count = 0; count < neighbours; ++count) {
        above = std::nextafter(above, infinity);
        below = std::nextafter(below, -infinity);
        if (above - from == extent) {
            return above;
        }
        if (below - from == extent) {
            return below;
        }
    }
    return sum;
}

} // namespace

std::optional<BoxCorners> FindBoxCorners(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& box)
{
    const double left = box.origin.x.value;
    const double bottom = box.origin.y.value;
    const auto right = FindEnd(left, box.size.width.value);
    const auto top = FindEnd(bottom, box.size.height.value);
    if (!right || !top) {
        return std::nullopt;
    }
    return BoxCorners{left, bottom, *right, *top};
}

} // namespace OrvPdf
