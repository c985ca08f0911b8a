#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <orv_sys/export.h>

#include <plexa/compound.h>

namespace Plexa
{

// For makers of documents.

/// Draws a shape by the path construction operators (ISO 32000-1, 8.5.2). All numbers are milli-points.
/// One builder can make any number of shapes; it keeps its memory between them, and each finished shape
/// holds just what it needs.
class ORV_EXPORT CompoundBuilder
{
public:
    using Point = Subpath::Point;

    /// `m`: begins a subpath. Right after another move it replaces that one without a trace.
    void MoveTo(const Point& start);

    /// `l`: false, and nothing is drawn, if there is no current point to draw from. After `Close` it begins
    /// a new subpath at the start of the closed one, as if a move to that point stood in between.
    bool LineTo(const Point& end);

    /// `c`: as `LineTo`. For `v` the first control point is `GetCurrentPoint`, for `y` the second is `end`.
    bool CurveTo(const Point& firstControlPoint, const Point& secondControlPoint, const Point& end);

    /// `h`: closes the current subpath; its start becomes the current point. Closing it again changes
    /// nothing. False if there is no subpath to close.
    bool Close();

    /// `re`: a closed subpath of three lines from (x, y) along the width first. Width and height may be
    /// negative. (x, y) is the current point afterwards. A move right before it is replaced, as by `MoveTo`.
    void AddRectangle(double x, double y, double width, double height);

    std::optional<Point> GetCurrentPoint() const;

    /// Whether nothing was drawn since the last `Finish`, not even a move.
    bool IsEmpty() const;

    /// The drawn segments so far, moves and closes not counted; constant time, to check a limit with.
    std::size_t GetSegmentCount() const { return finishedSegmentCount + kinds.size(); }

    /// The shape drawn so far, and a fresh start. A move at the end that nothing follows stays as an open
    /// subpath of its own, since it was written.
    std::shared_ptr<const Compound> Finish(WindingRule rule);

    /// Drops what was drawn.
    void Clear();

private:
    bool BeginDrawing();
    void FinishSubpath();

    std::vector<std::shared_ptr<const Subpath>> subpaths;
    /// The current subpath; no points mean that there is none.
    std::vector<Point> points;
    std::string kinds;
    bool isClosed = false;
    std::size_t finishedSegmentCount = 0;
};

} // namespace Plexa
