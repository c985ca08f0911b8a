#include "orv_font/glyph_outline.h"

#include <sstream>
#include <vector>

#include <gtest/gtest.h>

#include <plexa/compound.h>

namespace OrvFont::Detail
{
namespace
{

constexpr char onCurve = FT_CURVE_TAG_ON;
constexpr char quadratic = FT_CURVE_TAG_CONIC;
constexpr char cubic = FT_CURVE_TAG_CUBIC;

struct TaggedPoint
{
    FT_Pos x;
    FT_Pos y;
    char tag;
};

std::string Draw(const std::vector<TaggedPoint>& given, std::vector<short> ends, unsigned unitsPerEm = 1000,
                 const Font::Point& origin = {})
{
    std::vector<FT_Vector> points;
    std::vector<char> tags;
    for (const TaggedPoint& point : given) {
        points.push_back({point.x, point.y});
        tags.push_back(point.tag);
    }
    FT_Outline outline{};
    outline.n_points = static_cast<short>(points.size());
    outline.n_contours = static_cast<short>(ends.size());
    outline.points = points.data();
    outline.tags = tags.data();
    outline.contours = ends.data();
    std::ostringstream text;
    text << MakeCompound(outline, unitsPerEm, origin);
    return text.str();
}

TEST(GlyphOutline, WithoutContoursIsNone)
{
    EXPECT_EQ(Draw({}, {}), "(no shape)");
}

TEST(GlyphOutline, ClosesEachContour)
{
    EXPECT_EQ(Draw({{0, 0, onCurve}, {9, 0, onCurve}, {0, 9, onCurve}, {20, 20, onCurve}, {30, 20, onCurve}},
                   {2, 4}),
              "NonZero { M 0 0 L 9 0 L 0 9 Z M 20 20 L 30 20 Z }");
}

TEST(GlyphOutline, LeavesOutAContourOfOnePoint)
{
    EXPECT_EQ(Draw({{5, 5, onCurve}, {0, 0, onCurve}, {9, 0, onCurve}}, {0, 2}), "NonZero { M 0 0 L 9 0 Z }");
    EXPECT_EQ(Draw({{5, 5, onCurve}}, {0}), "(no shape)");
}

TEST(GlyphOutline, PutsAPointBetweenTwoQuadraticOnes)
{
    EXPECT_EQ(Draw({{0, 0, onCurve}, {30, 0, quadratic}, {60, 30, quadratic}, {60, 60, onCurve}}, {3}),
              "NonZero { M 0 0 C 20 0 35 5 45 15 C 55 25 60 40 60 60 Z }");
}

TEST(GlyphOutline, ClosesACurveAtItsStart)
{
    EXPECT_EQ(Draw({{0, 0, onCurve}, {60, 0, onCurve}, {60, 60, quadratic}}, {2}),
              "NonZero { M 0 0 L 60 0 C 60 40 40 40 0 0 Z }");
}

TEST(GlyphOutline, BeginsAtItsLastPointIfTheFirstIsOffTheCurve)
{
    EXPECT_EQ(Draw({{60, 60, quadratic}, {60, 0, onCurve}, {0, 0, onCurve}}, {2}),
              "NonZero { M 0 0 C 40 40 60 40 60 0 Z }");
}

TEST(GlyphOutline, KeepsCubicCurves)
{
    EXPECT_EQ(
        Draw({{0, 0, onCurve}, {1, 2, cubic}, {3, 4, cubic}, {5, 6, onCurve}, {7, 8, cubic}, {9, 1, cubic}},
             {5}),
        "NonZero { M 0 0 C 1 2 3 4 5 6 C 7 8 9 1 0 0 Z }");
}

TEST(GlyphOutline, ThatContradictsItselfIsNone)
{
    // One cubic point alone, one at the start, one behind a quadratic point.
    EXPECT_EQ(Draw({{0, 0, onCurve}, {1, 2, cubic}, {5, 6, onCurve}}, {2}), "(no shape)");
    EXPECT_EQ(Draw({{1, 2, cubic}, {3, 4, cubic}, {5, 6, onCurve}}, {2}), "(no shape)");
    EXPECT_EQ(Draw({{0, 0, onCurve}, {1, 2, quadratic}, {3, 4, cubic}, {5, 6, onCurve}}, {3}), "(no shape)");
    // Ends that go back, and one beyond the points.
    EXPECT_EQ(Draw({{0, 0, onCurve}, {9, 0, onCurve}, {9, 9, onCurve}}, {2, 1}), "(no shape)");
    EXPECT_EQ(Draw({{0, 0, onCurve}, {9, 0, onCurve}, {9, 9, onCurve}}, {3}), "(no shape)");
}

TEST(GlyphOutline, RoundsEachCoordinateOnce)
{
    // Of an em of 1000 units, 2/3 and 4/3: the doubles next to them, which print as they read back.
    EXPECT_EQ(Draw({{0, 0, onCurve}, {1, 0, quadratic}, {2, 0, onCurve}}, {2}),
              "NonZero { M 0 0 C 0.6666666666666666 0 1.3333333333333333 0 2 0 Z }");
    // 20/3 of an em of 100 units, where a division by 100 and another by 3 would round twice.
    EXPECT_EQ(Draw({{0, 0, onCurve}, {7, 0, quadratic}, {0, 0, onCurve}}, {2}, 700),
              "NonZero { M 0 0 C 6.666666666666667 0 6.666666666666667 0 0 0 Z }");
}

TEST(GlyphOutline, StandsAroundTheOrigin)
{
    EXPECT_EQ(Draw({{0, 0, onCurve}, {500, 0, onCurve}, {500, 500, onCurve}}, {2}, 500, {250.0, -10.0}),
              "NonZero { M -250 10 L 750 10 L 750 1010 Z }");
}

} // namespace
} // namespace OrvFont::Detail
