#include <cmath>
#include <limits>
#include <type_traits>

#include <gtest/gtest.h>

#include <plexa/rectangle.h>

namespace
{

using MilliPoint = Plexa::MilliPointCoordinateSystem;
using Pdf = Plexa::PdfCoordinateSystem;
using Point = Plexa::PointBase<MilliPoint>;
using Rectangle = Plexa::RectangleBase<MilliPoint>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(PlexaValues, SystemsDoNotConvertIntoOneAnother)
{
    EXPECT_FALSE((std::is_convertible_v<Plexa::CoordinateBase<MilliPoint>, Plexa::CoordinateBase<Pdf>>));
    EXPECT_FALSE((std::is_constructible_v<Plexa::PointBase<Pdf>, Plexa::PointBase<MilliPoint>>));
    EXPECT_FALSE((std::is_constructible_v<Plexa::CoordinateBase<Pdf>, Plexa::CoordinateBase<MilliPoint>>));
}

TEST(PlexaValues, DefaultsAreZero)
{
    constexpr Plexa::CoordinateBase<Pdf> coordinate;
    constexpr Plexa::DimensionBase<Pdf> dimension;
    EXPECT_EQ(coordinate.value, 0.0);
    EXPECT_EQ(dimension.width.value, 0.0);
    EXPECT_EQ(dimension.height.value, 0.0);
}

TEST(PlexaValues, EqualityOfPointsIsExact)
{
    const Point point(1.0, 2.0);
    EXPECT_TRUE(point == Point(1.0, 2.0));
    EXPECT_TRUE(point != Point(std::nextafter(1.0, 2.0), 2.0));
    EXPECT_TRUE(point != Point(1.0, std::nextafter(2.0, 3.0)));
}

TEST(PlexaValues, EqualityOfDimensionsIsExact)
{
    const Plexa::DimensionBase<Pdf> dimension(1.0, 2.0);
    EXPECT_TRUE((dimension == Plexa::DimensionBase<Pdf>(1.0, 2.0)));
    EXPECT_TRUE((dimension != Plexa::DimensionBase<Pdf>(std::nextafter(1.0, 0.0), 2.0)));
    EXPECT_TRUE((dimension != Plexa::DimensionBase<Pdf>(1.0, std::nextafter(2.0, 0.0))));
}

TEST(PlexaValues, NanEqualsNothing)
{
    const Point point(nan, 0.0);
    EXPECT_FALSE(point == point);
    EXPECT_TRUE(point != point);
}

TEST(PlexaValues, RectangleIsInitialUntilMadeFromValues)
{
    EXPECT_TRUE(Rectangle().isInitial);
    EXPECT_FALSE(Rectangle({0.0, 0.0}, {0.0, 0.0}).isInitial);
    EXPECT_FALSE(Rectangle(0.0, 0.0, 0.0, 0.0).isInitial);
}

TEST(PlexaValues, RectangleFieldsAreOriginSizeAndFlagInThisOrder)
{
    const Rectangle rectangle{{1.0, 2.0}, {3.0, 4.0}};
    EXPECT_EQ(rectangle.origin, Point(1.0, 2.0));
    EXPECT_EQ(rectangle.size, Plexa::DimensionBase<MilliPoint>(3.0, 4.0));
    EXPECT_TRUE((Rectangle{{1.0, 2.0}, {3.0, 4.0}, true}).isInitial);
}

TEST(PlexaValues, RectangleEqualityComparesEachNumber)
{
    const Rectangle rectangle(1.0, 2.0, 3.0, 4.0);
    EXPECT_TRUE(rectangle == Rectangle(1.0, 2.0, 3.0, 4.0));
    EXPECT_TRUE(rectangle != Rectangle(1.5, 2.0, 3.0, 4.0));
    EXPECT_TRUE(rectangle != Rectangle(1.0, 2.5, 3.0, 4.0));
    EXPECT_TRUE(rectangle != Rectangle(1.0, 2.0, 3.5, 4.0));
    EXPECT_TRUE(rectangle != Rectangle(1.0, 2.0, 3.0, 4.5));
}

TEST(PlexaValues, RectangleEqualityComparesTheFlag)
{
    EXPECT_TRUE(Rectangle() == Rectangle());
    EXPECT_TRUE(Rectangle() != Rectangle(0.0, 0.0, 0.0, 0.0));
}

TEST(PlexaValues, RectangleFromCornersPutsThemInOrder)
{
    const Rectangle expected(-1.0, 2.0, 4.0, 5.0);
    EXPECT_EQ(Plexa::RectangleFromCorners(Point(-1.0, 2.0), Point(3.0, 7.0)), expected);
    EXPECT_EQ(Plexa::RectangleFromCorners(Point(3.0, 7.0), Point(-1.0, 2.0)), expected);
    EXPECT_EQ(Plexa::RectangleFromCorners(Point(3.0, 2.0), Point(-1.0, 7.0)), expected);
}

TEST(PlexaValues, UnionWithAnInitialRectangleIsTheOther)
{
    const Rectangle rectangle(0.1, 0.2, 0.3, 0.4);
    EXPECT_EQ(Plexa::Union(Rectangle(), rectangle), rectangle);
    EXPECT_EQ(Plexa::Union(rectangle, Rectangle()), rectangle);
    EXPECT_TRUE(Plexa::Union(Rectangle(), Rectangle()).isInitial);
}

TEST(PlexaValues, UnionEnclosesBoth)
{
    const Rectangle one(0.0, 0.0, 10.0, 10.0);
    const Rectangle other(-5.0, 4.0, 2.0, 20.0);
    EXPECT_EQ(Plexa::Union(one, other), Rectangle(-5.0, 0.0, 15.0, 24.0));
    EXPECT_EQ(Plexa::Union(other, one), Rectangle(-5.0, 0.0, 15.0, 24.0));
}

TEST(PlexaValues, UnionOfEqualRectanglesKeepsEveryBit)
{
    // 0.1 + 0.2 is not 0.3, so a detour over the right edge would change the width.
    const Rectangle rectangle(0.1, 0.1, 0.2, 0.2);
    EXPECT_EQ(Plexa::Union(rectangle, rectangle), rectangle);
}

TEST(PlexaValues, UnionReadsNegativeSizesAsExtentToTheLeftAndDown)
{
    const Rectangle backward(10.0, 10.0, -4.0, -6.0);
    EXPECT_EQ(Plexa::Union(backward, Rectangle(8.0, 8.0, 1.0, 1.0)), Rectangle(6.0, 4.0, 4.0, 6.0));
}

} // namespace
