#pragma once

#include <cstdint>
#include <vector>

namespace OrvDoc
{

// For makers of documents.

/// Shape of the ends of open lines (ISO 32000-1, table 54).
enum class LineCap : std::uint32_t
{
    Butt = 0,
    Round = 1,
    ProjectingSquare = 2,
};

/// Shape of the corners of lines (ISO 32000-1, table 55).
enum class LineJoin : std::uint32_t
{
    Miter = 0,
    Round = 1,
    Bevel = 2,
};

/// How lines are drawn (ISO 32000-1, 8.4.3). The defaults are those of a fresh graphics state.
struct StrokeProperties
{
    /// Milli-points in the object's own coordinates; 0 is the thinnest line of the device.
    double width = 1000.0;
    LineCap cap = LineCap::Butt;
    LineJoin join = LineJoin::Miter;
    double miterLimit = 10.0;
    /// Milli-points, on and off in turn; empty for a solid line.
    std::vector<double> dashArray;
    /// Milli-points into the pattern at which a line begins.
    double dashPhase = 0.0;
};

inline bool operator==(const StrokeProperties& left, const StrokeProperties& right)
{
    return left.width == right.width && left.cap == right.cap && left.join == right.join &&
           left.miterLimit == right.miterLimit && left.dashArray == right.dashArray &&
           left.dashPhase == right.dashPhase;
}

inline bool operator!=(const StrokeProperties& left, const StrokeProperties& right)
{
    return !(left == right);
}

} // namespace OrvDoc
