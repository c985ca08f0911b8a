#include "pdf/writer/content/path_operators.h"

#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>

namespace OrvPdf
{
namespace
{

using Plexa::CompoundBuilder;
using Plexa::WindingRule;
using Point = CompoundBuilder::Point;

std::string Write(CompoundBuilder& builder)
{
    std::string out;
    AppendPath(out, *builder.Finish(WindingRule::NonZero));
    return out;
}

PathLosses LossesOf(CompoundBuilder& builder)
{
    std::string out;
    return AppendPath(out, *builder.Finish(WindingRule::NonZero));
}

TEST(PathOperators, SaysLinesInPoints)
{
    CompoundBuilder builder;
    builder.MoveTo({12345.0, -500.0});
    builder.LineTo({0.001, 2e9});
    EXPECT_EQ(Write(builder), "12.345 -0.5 m\n0.000001 2000000 l\n");
}

TEST(PathOperators, ClosesOnlyWhatWasClosed)
{
    CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.LineTo({1000.0, 0.0});
    builder.LineTo({0.0, 0.0});
    builder.MoveTo({2000.0, 0.0});
    builder.LineTo({3000.0, 0.0});
    builder.Close();
    EXPECT_EQ(Write(builder), "0 0 m\n1 0 l\n0 0 l\n2 0 m\n3 0 l\nh\n");
}

TEST(PathOperators, SaysACurveWhoseFirstControlPointIsTheCurrentPointByV)
{
    CompoundBuilder builder;
    builder.MoveTo({1000.0, 1000.0});
    builder.CurveTo({1000.0, 1000.0}, {2000.0, 2000.0}, {3000.0, 3000.0});
    EXPECT_EQ(Write(builder), "1 1 m\n2 2 3 3 v\n");
}

TEST(PathOperators, SaysACurveWhoseSecondControlPointIsItsEndByY)
{
    CompoundBuilder builder;
    builder.MoveTo({1000.0, 1000.0});
    builder.CurveTo({2000.0, 2000.0}, {3000.0, 3000.0}, {3000.0, 3000.0});
    EXPECT_EQ(Write(builder), "1 1 m\n2 2 3 3 y\n");
}

TEST(PathOperators, SaysACurveInFullIfAControlPointDiffersInItsLastBit)
{
    CompoundBuilder builder;
    builder.MoveTo({1000.0, 1000.0});
    builder.CurveTo({std::nextafter(1000.0, 2000.0), 1000.0}, {2000.0, 2000.0}, {3000.0, 3000.0});
    EXPECT_EQ(Write(builder), "1 1 m\n1.0000000000000001 1 2 2 3 3 c\n");
}

TEST(PathOperators, TellsNegativeZeroFromZero)
{
    CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.CurveTo({-0.0, 0.0}, {2000.0, 2000.0}, {3000.0, 3000.0});
    EXPECT_EQ(Write(builder), "0 0 m\n-0 0 2 2 3 3 c\n");
}

TEST(PathOperators, SaysARectangleByRe)
{
    CompoundBuilder builder;
    builder.AddRectangle(1000.0, 2000.0, -300.0, 40.0);
    EXPECT_EQ(Write(builder), "1 2 -0.3 0.04 re\n");
}

TEST(PathOperators, FindsTheFewDigitsOfARectangleWhoseCornersWereRounded)
{
    CompoundBuilder builder;
    builder.AddRectangle(10123.4, 20500.1, 30777.7, 40000.3);
    EXPECT_EQ(Write(builder), "10.1234 20.5001 30.7777 40.0003 re\n");
}

TEST(PathOperators, SaysAnOpenRectangleByLines)
{
    CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.LineTo({1000.0, 0.0});
    builder.LineTo({1000.0, 1000.0});
    builder.LineTo({0.0, 1000.0});
    EXPECT_EQ(Write(builder), "0 0 m\n1 0 l\n1 1 l\n0 1 l\n");
}

TEST(PathOperators, SaysARectangleThatGoesUpFirstByLines)
{
    CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.LineTo({0.0, 1000.0});
    builder.LineTo({1000.0, 1000.0});
    builder.LineTo({1000.0, 0.0});
    builder.Close();
    EXPECT_EQ(Write(builder), "0 0 m\n0 1 l\n1 1 l\n1 0 l\nh\n");
}

TEST(PathOperators, SaysARectangleWithACornerOffByOneBitByLines)
{
    CompoundBuilder builder;
    builder.MoveTo({0.0, 0.0});
    builder.LineTo({1000.0, 0.0});
    builder.LineTo({1000.0, std::nextafter(1000.0, 0.0)});
    builder.LineTo({0.0, 1000.0});
    builder.Close();
    EXPECT_EQ(Write(builder), "0 0 m\n1 0 l\n1 0.9999999999999999 l\n0 1 l\nh\n");
}

TEST(PathOperators, KeepsALoneMoveAtTheEnd)
{
    CompoundBuilder builder;
    builder.MoveTo({1000.0, 1000.0});
    EXPECT_EQ(Write(builder), "1 1 m\n");
}

TEST(PathOperators, KeepsAClosedPoint)
{
    CompoundBuilder builder;
    builder.MoveTo({1000.0, 1000.0});
    builder.Close();
    builder.MoveTo({2000.0, 2000.0});
    EXPECT_EQ(Write(builder), "1 1 m\nh\n2 2 m\n");
}

TEST(PathOperators, LeavesOutALoneMoveThatAnotherOneWouldReplaceAndTellsSo)
{
    using Plexa::Subpath;
    const auto lone = std::make_shared<const Subpath>(std::vector<Point>{{1.0, 1.0}}, "", false);
    std::string out;
    const PathLosses losses = AppendPath(out, Plexa::Compound({lone, lone}, WindingRule::NonZero));
    EXPECT_EQ(out, "0.001 0.001 m\n");
    EXPECT_TRUE(losses.leftOut);
}

TEST(PathOperators, WritesNothingOfAShapeWithAnInfiniteCoordinate)
{
    CompoundBuilder builder;
    builder.AddRectangle(0.0, 0.0, 1000.0, 1000.0);
    builder.MoveTo({0.0, std::numeric_limits<double>::infinity()});
    std::string out;
    EXPECT_TRUE(AppendPath(out, *builder.Finish(WindingRule::NonZero)).notFinite);
    EXPECT_EQ(out, "");
}

TEST(PathOperators, TellsAShapeWithoutAnyPoint)
{
    CompoundBuilder builder;
    EXPECT_TRUE(LossesOf(builder).empty);
    builder.MoveTo({0.0, 0.0});
    EXPECT_FALSE(LossesOf(builder).empty);
}

} // namespace
} // namespace OrvPdf
