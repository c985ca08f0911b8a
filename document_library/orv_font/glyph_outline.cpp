#include "orv_font/glyph_outline.h"

#include <plexa/compound_builder.h>

namespace OrvFont::Detail
{

namespace
{

/// Font units, or half of one where an on-curve point is implied: sums and small multiples are exact.
struct UnitPoint
{
    double x = 0.0;
    double y = 0.0;
};

UnitPoint Middle(const UnitPoint& first, const UnitPoint& second)
{
    return {(first.x + second.x) / 2.0, (first.y + second.y) / 2.0};
}

/// Draws one contour after the other.
class ContourDrawing
{
public:
    ContourDrawing(const FT_Outline& givenOutline, unsigned unitsPerEm, const Font::Point& givenOrigin)
        : outline(givenOutline), unitsInAnEm(unitsPerEm), origin(givenOrigin)
    {}

    /// The contour of the points from `first` to `last`; false if its points can't follow one another so.
    bool Draw(int first, int last)
    {
        if (last == first)
            return true;
        UnitPoint start = At(first);
        int next = first;
        int end = last;
        if (KindOf(first) == FT_CURVE_TAG_ON) {
            ++next;
        } else if (KindOf(first) == FT_CURVE_TAG_CUBIC) {
            return false;
        } else if (KindOf(last) == FT_CURVE_TAG_ON) {
            start = At(last);
            --end;
        } else {
            start = Middle(start, At(last));
        }
        current = start;
        builder.MoveTo(Scale(start));
        while (next <= end) {
            if (!DrawSegment(next, end, start))
                return false;
        }
        builder.Close();
        return true;
    }

    std::shared_ptr<const Plexa::Compound> Finish()
    {
        return builder.IsEmpty() ? nullptr : builder.Finish(Plexa::WindingRule::NonZero);
    }

private:
    UnitPoint At(int index) const
    {
        return {static_cast<double>(outline.points[index].x), static_cast<double>(outline.points[index].y)};
    }

    int KindOf(int index) const { return FT_CURVE_TAG(outline.tags[index]); }

    /// `multiple` times the place that is meant: one division rounds once.
    Font::Point Scale(const UnitPoint& point, double multiple = 1.0) const
    {
        const double divisor = unitsInAnEm * multiple;
        return {point.x * 1000.0 / divisor - origin.x.value, point.y * 1000.0 / divisor - origin.y.value};
    }

    /// Draws from the point `next` on and moves it on.
    bool DrawSegment(int& next, int end, const UnitPoint& start)
    {
        const UnitPoint point = At(next);
        switch (KindOf(next)) {
        case FT_CURVE_TAG_ON:
            ++next;
            builder.LineTo(Scale(point));
            current = point;
            return true;
        case FT_CURVE_TAG_CONIC: {
            ++next;
            UnitPoint target = start;
            if (next <= end) {
                if (KindOf(next) == FT_CURVE_TAG_CUBIC)
                    return false;
                target = At(next);
                if (KindOf(next) == FT_CURVE_TAG_ON)
                    ++next;
                else
                    target = Middle(point, target);
            }
            DrawQuadratic(point, target);
            return true;
        }
        case FT_CURVE_TAG_CUBIC: {
            if (next + 1 > end || KindOf(next + 1) != FT_CURVE_TAG_CUBIC)
                return false;
            const UnitPoint second = At(next + 1);
            next += 2;
            const UnitPoint target = next <= end ? At(next) : start;
            if (next <= end && KindOf(next) != FT_CURVE_TAG_ON)
                return false;
            ++next;
            builder.CurveTo(Scale(point), Scale(second), Scale(target));
            current = target;
            return true;
        }
        default:
            return false;
        }
    }

    void DrawQuadratic(const UnitPoint& control, const UnitPoint& target)
    {
        const UnitPoint tripleFirst{current.x + 2.0 * control.x, current.y + 2.0 * control.y};
        const UnitPoint tripleSecond{target.x + 2.0 * control.x, target.y + 2.0 * control.y};
        builder.CurveTo(Scale(tripleFirst, 3.0), Scale(tripleSecond, 3.0), Scale(target));
        current = target;
    }

    const FT_Outline& outline;
    double unitsInAnEm;
    Font::Point origin;
    UnitPoint current;
    Plexa::CompoundBuilder builder;
};

} // namespace

std::shared_ptr<const Plexa::Compound> MakeCompound(const FT_Outline& outline, unsigned unitsPerEm,
                                                    const Font::Point& origin)
{
    ContourDrawing drawing(outline, unitsPerEm, origin);
    int first = 0;
    for (int contour = 0; contour < outline.n_contours; ++contour) {
        const int last = outline.contours[contour];
        if (last < first || last >= outline.n_points || !drawing.Draw(first, last))
            return nullptr;
        first = last + 1;
    }
    return drawing.Finish();
}

} // namespace OrvFont::Detail
