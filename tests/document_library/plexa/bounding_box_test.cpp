#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <random>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>
#include <plexa/geometry.h>

namespace
{

using Plexa::Compound;
using Plexa::CompoundBuilder;
using Plexa::WindingRule;
using Point = CompoundBuilder::Point;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Rectangle FinishAsBox(CompoundBuilder& builder)
{
    return Plexa::GetBoundingBox(*builder.Finish(WindingRule::NonZero));
}

double EvaluateByPowers(double p0, double p1, double p2, double p3, double t)
{
    const double u = 1.0 - t;
    return u * u * u * p0 + 3.0 * u * u * t * p1 + 3.0 * u * t * t * p2 + t * t * t * p3;
}

TEST(PlexaBoundingBox, OfNothingIsInitial)
{
    CompoundBuilder builder;
    EXPECT_TRUE(FinishAsBox(builder).isInitial);
}

TEST(PlexaBoundingBox, OfLinesEnclosesTheirEnds)
{
    CompoundBuilder builder;
    builder.MoveTo({5, -5});
    builder.LineTo({10, 20});
    builder.LineTo({-10, 0});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(-10, -5, 20, 25));
}

TEST(PlexaBoundingBox, EnclosesAllSubpaths)
{
    CompoundBuilder builder;
    builder.AddRectangle(0, 0, 1, 1);
    builder.AddRectangle(10, 20, -1, -2);
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 10, 20));
}

TEST(PlexaBoundingBox, LoneMoveTakesNoPart)
{
    CompoundBuilder builder;
    builder.AddRectangle(0, 0, 1, 1);
    builder.MoveTo({100, 100});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 1, 1));
    builder.MoveTo({100, 100});
    EXPECT_TRUE(FinishAsBox(builder).isInitial);
}

TEST(PlexaBoundingBox, ClosedLoneMoveIsAPoint)
{
    CompoundBuilder builder;
    builder.MoveTo({3, 4});
    builder.Close();
    EXPECT_EQ(FinishAsBox(builder), Rectangle(3, 4, 0, 0));
}

TEST(PlexaBoundingBox, OfACurveEndsAtItsExtreme)
{
    // y(t) = 3 t (1 - t) * 100 is 75 at its top, where the control points stand at 100.
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.CurveTo({0, 100}, {100, 100}, {100, 0});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 100, 75));
}

TEST(PlexaBoundingBox, OfACurveHasBothExtremesOfAnAxis)
{
    // x(t) = 300 t (1 - t)^2 - 300 t^2 (1 - t) has its extremes at t = 1/2 -+ sqrt(3)/6.
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.CurveTo({100, 0}, {-100, 0}, {0, 30});
    const Rectangle box = FinishAsBox(builder);
    const double extreme = 100.0 * std::sqrt(3.0) / 6.0;
    EXPECT_NEAR(box.origin.x.value, -extreme, 1e-12);
    EXPECT_NEAR(box.size.width.value, 2.0 * extreme, 1e-12);
    EXPECT_EQ(box.origin.y.value, 0.0);
    EXPECT_EQ(box.size.height.value, 30.0);
}

TEST(PlexaBoundingBox, OfACurveWithinItsEndsIsThatOfTheEnds)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.CurveTo({10, 10}, {90, 20}, {100, 30});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 100, 30));
}

TEST(PlexaBoundingBox, OfRandomCurvesIsTight)
{
    const unsigned seed = 20240611;
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> number(-1000, 1000);
    for (int i = 0; i < 300; ++i) {
        double x[4];
        double y[4];
        for (int k = 0; k < 4; ++k) {
            x[k] = number(random);
            y[k] = number(random);
        }
        CompoundBuilder builder;
        builder.MoveTo({x[0], y[0]});
        builder.CurveTo({x[1], y[1]}, {x[2], y[2]}, {x[3], y[3]});
        const Rectangle box = FinishAsBox(builder);
        double left = x[0], right = x[0], bottom = y[0], top = y[0];
        for (int step = 1; step <= 2000; ++step) {
            const double px = EvaluateByPowers(x[0], x[1], x[2], x[3], step / 2000.0);
            const double py = EvaluateByPowers(y[0], y[1], y[2], y[3], step / 2000.0);
            left = std::min(left, px);
            right = std::max(right, px);
            bottom = std::min(bottom, py);
            top = std::max(top, py);
        }
        // Sampling misses an extreme by at most an eighth of the largest second derivative, 24000, times
        // the square of the step.
        const double slack = 24000.0 / 8.0 / (2000.0 * 2000.0);
        EXPECT_NEAR(box.origin.x.value, left, slack);
        EXPECT_NEAR(box.origin.y.value, bottom, slack);
        EXPECT_NEAR(box.origin.x.value + box.size.width.value, right, slack);
        EXPECT_NEAR(box.origin.y.value + box.size.height.value, top, slack);
    }
}

TEST(PlexaBoundingBox, OfATransformedShapeIsThatOfTheMadeShape)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.CurveTo({0, 100}, {100, 100}, {100, 0});
    builder.LineTo({50, -20});
    builder.Close();
    builder.MoveTo({70, 70});
    builder.Close();
    const auto compound = builder.Finish(WindingRule::NonZero);
    const Transformation turn(0.6, 0.8, -0.8, 0.6, 10, 20);
    EXPECT_EQ(Plexa::GetBoundingBox(*compound, turn), Plexa::GetBoundingBox(*(turn * compound)));
    EXPECT_NE(Plexa::GetBoundingBox(*compound, turn), Plexa::GetBoundingBox(*compound));
    EXPECT_EQ(Plexa::GetBoundingBox(*compound, Transformation()), Plexa::GetBoundingBox(*compound));
}

TEST(PlexaBoundingBox, SegmentsThatAreNotFiniteTakeNoPart)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.LineTo({10, 10});
    builder.LineTo({nan, 500});
    builder.LineTo({600, std::numeric_limits<double>::infinity()});
    builder.CurveTo({1000, 1000}, {nan, 0}, {20, 5});
    builder.LineTo({15, 5});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 20, 10));
}

TEST(PlexaBoundingBox, OfNothingFiniteIsInitial)
{
    CompoundBuilder builder;
    builder.MoveTo({nan, 0});
    builder.LineTo({1, nan});
    builder.Close();
    EXPECT_TRUE(FinishAsBox(builder).isInitial);
}

TEST(PlexaBoundingBox, OfACurveTooLargeToSolveEnclosesItsControlPoints)
{
    CompoundBuilder builder;
    builder.MoveTo({0, 0});
    builder.CurveTo({0, 1e300}, {1, 1e300}, {1, 0});
    EXPECT_EQ(FinishAsBox(builder), Rectangle(0, 0, 1, 1e300));
}

} // namespace
