#include "pdf/text_line.h"

#include <cmath>

#include <plexa/geometry.h>

namespace OrvPdf
{

namespace
{

constexpr double milliPointsInAPoint = 1000.0;

bool IsFinite(const TextLine& line)
{
    return std::isfinite(line.a) && std::isfinite(line.b) && std::isfinite(line.c) && std::isfinite(line.d) &&
           std::isfinite(line.x) && std::isfinite(line.y);
}

} // namespace

bool HaveSameAxes(const TextMatrix& left, const TextMatrix& right)
{
    return left.a == right.a && left.b == right.b && left.c == right.c && left.d == right.d;
}

boost::optional<TextLine> FindTextLine(const TextMatrix& line, const TextMatrix& text)
{
    const double determinant = text.a * text.d - text.b * text.c;
    if (determinant == 0.0 || !Plexa::Inverse(text)) {
        return boost::none;
    }
    TextLine result;
    const double x = (line.x.value - text.x.value) / milliPointsInAPoint;
    const double y = (line.y.value - text.y.value) / milliPointsInAPoint;
    if (text.b == 0.0 && text.c == 0.0) {
        result.x = x / text.a;
        result.y = y / text.d;
    } else {
        result.x = (x * text.d - y * text.c) / determinant;
        result.y = (y * text.a - x * text.b) / determinant;
    }
    if (!HaveSameAxes(line, text)) {
        result.a = (line.a * text.d - line.b * text.c) / determinant;
        result.b = (line.b * text.a - line.a * text.b) / determinant;
        result.c = (line.c * text.d - line.d * text.c) / determinant;
        result.d = (line.d * text.a - line.c * text.b) / determinant;
    }
    if (!IsFinite(result)) {
        return boost::none;
    }
    return result;
}

boost::optional<TextMatrix> MoveInAxes(const TextMatrix& matrix, double x, double y)
{
    const TextMatrix moved = Plexa::Concatenate(
        TextMatrix(1.0, 0.0, 0.0, 1.0, x * milliPointsInAPoint, y * milliPointsInAPoint), matrix);
    return std::isfinite(moved.x.value) && std::isfinite(moved.y.value) ? boost::make_optional(moved)
                                                                        : boost::none;
}

TextMatrix GetLineMatrix(const TextLine& line, const TextMatrix& text)
{
    return Plexa::Concatenate(TextMatrix(line.a, line.b, line.c, line.d, line.x * milliPointsInAPoint,
                                         line.y * milliPointsInAPoint),
                              text);
}

} // namespace OrvPdf
