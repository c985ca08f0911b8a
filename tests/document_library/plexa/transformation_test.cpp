#include <cmath>
#include <cstring>
#include <limits>

#include <gtest/gtest.h>

#include <plexa/transformation.h>

namespace
{

using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool HasSameBits(const Transformation& left, const Transformation& right)
{
    return std::memcmp(&left, &right, sizeof left) == 0;
}

TEST(PlexaTransformation, DefaultIsTheIdentity)
{
    constexpr Transformation identity;
    EXPECT_EQ(identity, Transformation(1.0, 0.0, 0.0, 1.0, 0.0, 0.0));
    EXPECT_TRUE(Plexa::IsIdentity(identity));
}

TEST(PlexaTransformation, EqualityComparesEachNumber)
{
    const Transformation transformation(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(transformation == Transformation(1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.5, 2.0, 3.0, 4.0, 5.0, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.0, 2.5, 3.0, 4.0, 5.0, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.0, 2.0, 3.5, 4.0, 5.0, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.0, 2.0, 3.0, 4.5, 5.0, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.0, 2.0, 3.0, 4.0, 5.5, 6.0));
    EXPECT_TRUE(transformation != Transformation(1.0, 2.0, 3.0, 4.0, 5.0, 6.5));
}

TEST(PlexaTransformation, NanEqualsNothing)
{
    const Transformation transformation(1.0, 0.0, 0.0, 1.0, nan, 0.0);
    EXPECT_FALSE(transformation == transformation);
}

TEST(PlexaTransformation, MapsAPointByTheColumnsOfAPdfMatrix)
{
    const Transformation transformation(2.0, 3.0, 5.0, 7.0, 11.0, 13.0);
    // 2*100 + 5*10 + 11, 3*100 + 7*10 + 13
    EXPECT_EQ(Plexa::MapPoint(transformation, Point(100.0, 10.0)), Point(261.0, 383.0));
}

TEST(PlexaTransformation, MapsAVectorWithoutTheTranslation)
{
    const Transformation transformation(2.0, 3.0, 5.0, 7.0, 11.0, 13.0);
    EXPECT_EQ(Plexa::MapVector(transformation, Point(100.0, 10.0)), Point(250.0, 370.0));
}

TEST(PlexaTransformation, ConcatenateAppliesTheInnerOneFirst)
{
    const Transformation scale(2.0, 0.0, 0.0, 3.0, 0.0, 0.0);
    const Transformation shift(1.0, 0.0, 0.0, 1.0, 10.0, 20.0);
    EXPECT_EQ(Plexa::Concatenate(shift, scale), Transformation(2.0, 0.0, 0.0, 3.0, 20.0, 60.0));
    EXPECT_EQ(Plexa::Concatenate(scale, shift), Transformation(2.0, 0.0, 0.0, 3.0, 10.0, 20.0));
}

TEST(PlexaTransformation, ConcatenateMultipliesTheRowsOfTheInnerWithTheColumnsOfTheOuter)
{
    const Transformation inner(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    const Transformation outer(7.0, 8.0, 9.0, 10.0, 11.0, 12.0);
    EXPECT_EQ(Plexa::Concatenate(inner, outer), Transformation(25.0, 28.0, 57.0, 64.0, 100.0, 112.0));
}

TEST(PlexaTransformation, ConcatenateMapsLikeInnerThenOuter)
{
    const Transformation inner(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    const Transformation outer(7.0, 8.0, 9.0, 10.0, 11.0, 12.0);
    const Point point(13.0, 17.0);
    EXPECT_EQ(Plexa::MapPoint(Plexa::Concatenate(inner, outer), point),
              Plexa::MapPoint(outer, Plexa::MapPoint(inner, point)));
}

TEST(PlexaTransformation, ConcatenateWithTheIdentityKeepsEveryBit)
{
    const Transformation awkward(-0.0, 0.1, -0.0, infinity, nan, -0.0);
    EXPECT_TRUE(HasSameBits(Plexa::Concatenate(awkward, Transformation()), awkward));
    EXPECT_TRUE(HasSameBits(Plexa::Concatenate(Transformation(), awkward), awkward));
}

TEST(PlexaTransformation, ConcatenateKeepsAnIdentityWithNegativeZeros)
{
    const Transformation negative(1.0, -0.0, 0.0, 1.0, -0.0, 0.0);
    EXPECT_FALSE(Plexa::IsIdentity(negative));
    EXPECT_TRUE(HasSameBits(Plexa::Concatenate(negative, Transformation()), negative));
    EXPECT_TRUE(HasSameBits(Plexa::Concatenate(Transformation(), negative), negative));
}

TEST(PlexaTransformation, TranslationOnlyMoves)
{
    using Coordinate = Plexa::CoordinateBase<Plexa::MilliPointCoordinateSystem>;
    EXPECT_EQ(Plexa::Translation(Coordinate(3.0), Coordinate(4.0)),
              Transformation(1.0, 0.0, 0.0, 1.0, 3.0, 4.0));
}

TEST(PlexaTransformation, InverseUndoes)
{
    const Transformation transformation(2.0, 1.0, 4.0, 4.0, 8.0, 16.0);
    const auto inverse = Plexa::Inverse(transformation);
    ASSERT_TRUE(inverse.has_value());
    // Determinant 4, so that all quotients are exact.
    EXPECT_EQ(*inverse, Transformation(1.0, -0.25, -1.0, 0.5, 8.0, -6.0));
    EXPECT_EQ(Plexa::Concatenate(transformation, *inverse), Transformation());
    EXPECT_EQ(Plexa::Concatenate(*inverse, transformation), Transformation());
}

TEST(PlexaTransformation, InverseOfTheIdentityIsTheIdentityBitByBit)
{
    const auto inverse = Plexa::Inverse(Transformation());
    ASSERT_TRUE(inverse.has_value());
    EXPECT_TRUE(Plexa::IsIdentity(*inverse));
}

TEST(PlexaTransformation, SingularOrInfiniteMatrixHasNoInverse)
{
    EXPECT_FALSE(Plexa::Inverse(Transformation(1.0, 2.0, 2.0, 4.0, 0.0, 0.0)).has_value());
    EXPECT_FALSE(Plexa::Inverse(Transformation(nan, 0.0, 0.0, 1.0, 0.0, 0.0)).has_value());
    EXPECT_FALSE(Plexa::Inverse(Transformation(infinity, 0.0, 0.0, 1.0, 0.0, 0.0)).has_value());
    EXPECT_FALSE(Plexa::Inverse(Transformation(1.0, 0.0, 0.0, 1.0, infinity, 0.0)).has_value());
    EXPECT_FALSE(Plexa::Inverse(Transformation(1e-310, 0.0, 0.0, 1.0, 1.0, 0.0)).has_value());
}

TEST(PlexaTransformation, MappedRectangleEnclosesTheMappedCorners)
{
    const Transformation quarterTurn(0.0, 1.0, -1.0, 0.0, 100.0, 0.0);
    EXPECT_EQ(Plexa::MapRectangle(quarterTurn, Rectangle(10.0, 20.0, 30.0, 5.0)),
              Rectangle(75.0, 10.0, 5.0, 30.0));
    const Transformation shear(1.0, 0.0, 1.0, 1.0, 0.0, 0.0);
    EXPECT_EQ(Plexa::MapRectangle(shear, Rectangle(0.0, 0.0, 10.0, 4.0)), Rectangle(0.0, 0.0, 14.0, 4.0));
}

TEST(PlexaTransformation, MappedInitialRectangleStaysInitial)
{
    EXPECT_TRUE(Plexa::MapRectangle(Transformation(2.0, 0.0, 0.0, 2.0, 5.0, 5.0), Rectangle()).isInitial);
}

TEST(PlexaTransformation, RectangleMappedByTheIdentityKeepsEveryBit)
{
    const Rectangle rectangle(0.1, 0.1, 0.2, -0.2);
    EXPECT_EQ(Plexa::MapRectangle(Transformation(), rectangle), rectangle);
}

} // namespace
