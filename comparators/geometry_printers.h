#pragma once

#include <plexa/coordinate.h>
#include <plexa/coordinate_systems.h>
#include <plexa/dimension.h>
#include <plexa/point.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>
#include <plexa/winding_rule.h>

#include <ostream>
#include <utility>
#include <vector>

/// Text of geometry in differences. Every bracket and blank is part of the form, and numbers are written as
/// the stream writes them: six significant digits in its default state, so that values that differ may read
/// alike.
namespace HarrowSupport::Comparators
{

/// The number alone.
template <typename System>
void PrintValue(std::ostream& stream, const Plexa::CoordinateBase<System>& coordinate)
{
    stream << coordinate.value;
}

/// `([X: x, Y: y], [X: x, Y: y])`
template <typename System>
void PrintValue(std::ostream& stream,
                const std::pair<Plexa::PointBase<System>, Plexa::PointBase<System>>& points)
{
    stream << "([X: " << points.first.x.value << ", Y: " << points.first.y.value
           << "], [X: " << points.second.x.value << ", Y: " << points.second.y.value << "])";
}

/// `[W: width, H: height]`
template <typename System>
void PrintValue(std::ostream& stream, const Plexa::DimensionBase<System>& dimension)
{
    stream << "[W: " << dimension.width.value << ", H: " << dimension.height.value << "]";
}

/// `[ L: left, T: top, R: right, B: bottom (W: width, H height) ]`, with no colon behind the H, and words
/// without numbers for a rectangle that was never given a value.
template <typename System>
void PrintValue(std::ostream& stream, const Plexa::RectangleBase<System>& rectangle)
{
    if (rectangle.isInitial) {
        stream << "[ <initial/default state> ]";
        return;
    }
    const double x = rectangle.origin.x.value;
    const double y = rectangle.origin.y.value;
    const double width = rectangle.size.width.value;
    const double height = rectangle.size.height.value;
    stream << "[ L: " << x << ", T: " << y + height << ", R: " << x + width << ", B: " << y
           << " (W: " << width << ", H " << height << ") ]";
}

/// `[A: a, B: b, C: c, D: d, X: x, Y: y]`
template <typename System>
void PrintValue(std::ostream& stream, const Plexa::TransformationBase<System>& transformation)
{
    stream << "[A: " << transformation.a << ", B: " << transformation.b << ", C: " << transformation.c
           << ", D: " << transformation.d << ", X: " << transformation.x.value
           << ", Y: " << transformation.y.value << "]";
}

/// `[ `, each transformation followed by a blank, `]`
template <typename System>
void PrintValue(std::ostream& stream, const std::vector<Plexa::TransformationBase<System>>& transformations)
{
    stream << "[ ";
    for (const Plexa::TransformationBase<System>& transformation : transformations) {
        PrintValue(stream, transformation);
        stream << " ";
    }
    stream << "]";
}

/// "EvenOdd" or "NonZero"; nothing for a rule that is neither.
void PrintValue(std::ostream& stream, const Plexa::WindingRule& rule);

} // namespace HarrowSupport::Comparators
