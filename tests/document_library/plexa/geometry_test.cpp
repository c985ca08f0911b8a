#include <cmath>
#include <limits>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <plexa/compound_builder.h>
#include <plexa/geometry.h>

namespace
{

using Plexa::Compound;
using Plexa::CompoundBuilder;
using Plexa::WindingRule;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string Print(const std::shared_ptr<const Compound>& compound)
{
    std::ostringstream stream;
    stream << compound;
    return stream.str();
}

std::shared_ptr<const Compound> MakeMixedShape()
{
    CompoundBuilder builder;
    builder.MoveTo({1, 2});
    builder.LineTo({3, 4});
    builder.CurveTo({5, 6}, {7, 8}, {9, 10});
    builder.MoveTo({10, 0});
    builder.Close();
    return builder.Finish(WindingRule::EvenOdd);
}

TEST(PlexaRectangleCompound, IsTheClosedOutline)
{
    EXPECT_EQ(Print(Plexa::GetRectangleCompound(Rectangle(1, 2, 10, 20))),
              "NonZero { M 1 2 L 11 2 L 11 22 L 1 22 Z }");
}

TEST(PlexaRectangleCompound, EqualsTheRectangleOperator)
{
    CompoundBuilder builder;
    builder.AddRectangle(0.1, 0.7, 0.2, -0.3);
    EXPECT_TRUE(*Plexa::GetRectangleCompound(Rectangle(0.1, 0.7, 0.2, -0.3)) ==
                *builder.Finish(WindingRule::NonZero));
}

TEST(PlexaRectangleCompound, InitialRectangleHasNoOutline)
{
    EXPECT_EQ(Print(Plexa::GetRectangleCompound(Rectangle())), "NonZero { }");
}

TEST(PlexaRectangleCompound, EmptyRectangleHasAnOutline)
{
    EXPECT_EQ(Print(Plexa::GetRectangleCompound(Rectangle(1, 2, 0, 0))),
              "NonZero { M 1 2 L 1 2 L 1 2 L 1 2 Z }");
}

TEST(PlexaTransformedCompound, MapsEveryPointAndKeepsTheRest)
{
    const Transformation transformation(2, 0, 0, 10, 100, 1000);
    EXPECT_EQ(Print(transformation * MakeMixedShape()),
              "EvenOdd { M 102 1020 L 106 1040 C 110 1060 114 1080 118 1100 M 120 1000 Z }");
}

TEST(PlexaTransformedCompound, LeavesTheArgumentAlone)
{
    const auto compound = MakeMixedShape();
    const auto mapped = Transformation(0, 1, -1, 0, 0, 0) * compound;
    EXPECT_NE(mapped, compound);
    EXPECT_TRUE(*compound == *MakeMixedShape());
}

TEST(PlexaTransformedCompound, IdentityMakesANewShapeThatKeepsEveryBit)
{
    CompoundBuilder builder;
    builder.MoveTo({-0.0, infinity});
    const auto compound = builder.Finish(WindingRule::NonZero);
    const auto mapped = Transformation() * compound;
    EXPECT_NE(mapped, compound);
    EXPECT_EQ(Print(mapped), "NonZero { M -0 inf }");
}

TEST(PlexaTransformedCompound, NullStaysNull)
{
    EXPECT_EQ(Transformation() * std::shared_ptr<const Compound>(), nullptr);
    EXPECT_EQ(Transformation(2, 0, 0, 2, 0, 0) * std::shared_ptr<const Compound>(), nullptr);
}

TEST(PlexaTransformedCompound, EmptySubpathStaysEmpty)
{
    const auto compound = std::make_shared<const Compound>(
        std::vector<std::shared_ptr<const Plexa::Subpath>>{std::make_shared<const Plexa::Subpath>()},
        WindingRule::NonZero);
    EXPECT_EQ(Print(Transformation(2, 0, 0, 2, 5, 5) * compound), "NonZero { E }");
}

TEST(PlexaLength, IsTheDistanceFromTheOrigin)
{
    EXPECT_EQ(Plexa::GetLength({3.0, -4.0}).value, 5.0);
    EXPECT_EQ(Plexa::GetLength({0.0, 0.0}).value, 0.0);
    EXPECT_EQ(Plexa::GetLength({0.0, -0.01}).value, 0.01);
}

TEST(PlexaLength, DoesNotOverflowOnTheWay)
{
    EXPECT_DOUBLE_EQ(Plexa::GetLength({3e200, 4e200}).value, 5e200);
}

TEST(PlexaLength, NanIsNoLength)
{
    EXPECT_TRUE(std::isnan(Plexa::GetLength({nan, 0.0}).value));
    EXPECT_TRUE(std::isnan(Plexa::GetLength({0.0, nan}).value));
}

} // namespace
