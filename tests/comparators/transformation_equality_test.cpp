#include "comparators/transformation_equality.h"

#include "support/document_makers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace HarrowSupport::Testing
{

namespace
{

/// The number that many representable ones above (or below) the given one.
double Step(double number, int steps)
{
    const double target =
        steps > 0 ? std::numeric_limits<double>::infinity() : -std::numeric_limits<double>::infinity();
    for (int i = 0; i < std::abs(steps); ++i)
        number = std::nextafter(number, target);
    return number;
}

bool NearlyEqual(double left, double right)
{
    const bool result = Comparators::NumbersNearlyEqual(left, right);
    EXPECT_EQ(Comparators::NumbersNearlyEqual(right, left), result) << "right against left";
    return result;
}

double FromBits(std::uint64_t bits)
{
    double number = 0.0;
    std::memcpy(&number, &bits, sizeof number);
    return number;
}

} // namespace

TEST(NumbersNearlyEqual, FiveUnitsApartMatchAndSixDoNot)
{
    for (double number : {1.0, -1.0, 0.1, 1e300, -1e-300, 12345.678, 5e-324, 2.0, -1024.0}) {
        for (int steps : {0, 1, 5, -1, -5})
            EXPECT_TRUE(NearlyEqual(number, Step(number, steps))) << number << " and " << steps;
        for (int steps : {6, -6, 100, -100})
            EXPECT_FALSE(NearlyEqual(number, Step(number, steps))) << number << " and " << steps;
    }
}

TEST(NumbersNearlyEqual, BothZerosAreOne)
{
    EXPECT_TRUE(NearlyEqual(0.0, -0.0));
}

TEST(NumbersNearlyEqual, UnitsAreCountedAcrossZero)
{
    EXPECT_TRUE(NearlyEqual(Step(0.0, 2), Step(0.0, -3)));
    EXPECT_FALSE(NearlyEqual(Step(0.0, 3), Step(0.0, -3)));
    EXPECT_TRUE(NearlyEqual(Step(0.0, 5), -0.0));
    EXPECT_FALSE(NearlyEqual(Step(0.0, 6), -0.0));
}

TEST(NumbersNearlyEqual, OppositeSignsDiffer)
{
    EXPECT_FALSE(NearlyEqual(1.0, -1.0));
    EXPECT_FALSE(NearlyEqual(std::numeric_limits<double>::max(), -std::numeric_limits<double>::max()));
}

TEST(NumbersNearlyEqual, InfinityFollowsTheGreatestNumber)
{
    EXPECT_TRUE(NearlyEqual(std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max()));
}

TEST(NumbersNearlyEqual, OnlyBitsCountForWhatIsNoNumber)
{
    const double nan = FromBits(0x7ff8000000000000u);
    EXPECT_TRUE(NearlyEqual(nan, nan));
    EXPECT_FALSE(NearlyEqual(nan, 1.0));
    EXPECT_FALSE(NearlyEqual(nan, FromBits(0x7ff8000000000006u)));
}

TEST(NumbersNearlyEqual, DifferencesWrapAround)
{
    // The two ends of the order of all bit patterns are two apart.
    EXPECT_TRUE(NearlyEqual(FromBits(0x7fffffffffffffffu), FromBits(0xffffffffffffffffu)));
}

TEST(TransformationsNearlyEqual, EveryNumberCounts)
{
    const Matrix matrix(1.0, 2.0, 3.0, 4.0, 5.0, 6.0);
    EXPECT_TRUE(Comparators::TransformationsNearlyEqual(matrix, matrix));
    double Matrix::*const numbers[] = {&Matrix::a, &Matrix::b, &Matrix::c, &Matrix::d};
    for (double Matrix::*number : numbers) {
        Matrix other = matrix;
        other.*number = Step(matrix.*number, 5);
        EXPECT_TRUE(Comparators::TransformationsNearlyEqual(matrix, other));
        other.*number = Step(matrix.*number, 6);
        EXPECT_FALSE(Comparators::TransformationsNearlyEqual(matrix, other));
        EXPECT_FALSE(Comparators::TransformationsNearlyEqual(other, matrix));
    }
    Plexa::CoordinateBase<MilliPoints> Matrix::*const coordinates[] = {&Matrix::x, &Matrix::y};
    for (Plexa::CoordinateBase<MilliPoints> Matrix::*coordinate : coordinates) {
        Matrix other = matrix;
        (other.*coordinate).value = Step((matrix.*coordinate).value, -5);
        EXPECT_TRUE(Comparators::TransformationsNearlyEqual(matrix, other));
        (other.*coordinate).value = Step((matrix.*coordinate).value, -6);
        EXPECT_FALSE(Comparators::TransformationsNearlyEqual(matrix, other));
    }
}

} // namespace HarrowSupport::Testing
