#include <orv_paint/exponential_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>
#include <stdexcept>

namespace OrvPaint
{
namespace
{

using testing::ElementsAre;
using Factory = ExponentialFunction::Factory;
using Pair = std::array<double, 2>;

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(ExponentialFunctionTest, KeepsWhatItWasMadeOf)
{
    const auto function = Factory({0.0f, 0.25f}, {1.0f, 0.5f}, 2.5).SetDomain({-1.0, 3.0}).Get();
    EXPECT_EQ(function->GetType(), Function::Type::Exponential);
    EXPECT_THAT(function->GetC0(), ElementsAre(0.0f, 0.25f));
    EXPECT_THAT(function->GetC1(), ElementsAre(1.0f, 0.5f));
    EXPECT_EQ(function->GetN(), 2.5);
    EXPECT_THAT(function->GetDomain(), ElementsAre(Pair{-1.0, 3.0}));
}

TEST(ExponentialFunctionTest, DomainIsZeroToOneByDefault)
{
    EXPECT_THAT(Factory({0.0f}, {1.0f}, 1.0).Get()->GetDomain(), ElementsAre(Pair{0.0, 1.0}));
}

TEST(ExponentialFunctionTest, RangeHasOnePairForEachComponentEvenIfNotStated)
{
    const auto function = Factory({0.0f, 0.0f}, {1.0f, 1.0f}, 1.0).Get();
    EXPECT_THAT(function->GetRange(), ElementsAre(Pair{-Infinity, Infinity}, Pair{-Infinity, Infinity}));
    EXPECT_FALSE(function->HasRange());
}

TEST(ExponentialFunctionTest, StatedRangeIsKept)
{
    const auto function = Factory({0.0f}, {1.0f}, 1.0).SetRange({{0.0, 0.5}}).Get();
    EXPECT_THAT(function->GetRange(), ElementsAre(Pair{0.0, 0.5}));
    EXPECT_TRUE(function->HasRange());
}

TEST(ExponentialFunctionTest, IsZeroWhereBothEndsAre)
{
    const auto function = Factory({0.0f, 0.0f, 0.5f}, {0.0f, 0.5f, 0.0f}, 1.0).Get();
    EXPECT_TRUE(function->IsZero(0));
    EXPECT_FALSE(function->IsZero(1));
    EXPECT_FALSE(function->IsZero(2));
    EXPECT_TRUE(function->IsZero(3));
}

TEST(ExponentialFunctionTest, ARangeThatLeavesNothingElseMakesItZero)
{
    const auto function = Factory({0.5f, 0.5f}, {1.0f, 1.0f}, 1.0).SetRange({{0.0, 0.0}, {0.0, 1.0}}).Get();
    EXPECT_TRUE(function->IsZero(0));
    EXPECT_FALSE(function->IsZero(1));
}

TEST(ExponentialFunctionTest, ARangeWithoutZeroKeepsItFromBeingZero)
{
    const double above = std::nextafter(0.0, 1.0);
    const auto function = Factory({0.0f, 0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 0.0f, 0.0f}, 1.0)
                              .SetRange({{0.0, 1.0}, {above, 1.0}, {-1.0, 0.0}, {-1.0, -above}})
                              .Get();
    EXPECT_TRUE(function->IsZero(0));
    EXPECT_FALSE(function->IsZero(1));
    EXPECT_TRUE(function->IsZero(2));
    EXPECT_FALSE(function->IsZero(3));
    EXPECT_TRUE(function->IsZero(4));
}

TEST(ExponentialFunctionTest, RefusesEndsOfDifferentLength)
{
    EXPECT_THROW(Factory({0.0f}, {1.0f, 1.0f}, 1.0).Get(), std::invalid_argument);
}

TEST(ExponentialFunctionTest, RefusesARangeOfAnotherLength)
{
    EXPECT_THROW(Factory({0.0f}, {1.0f}, 1.0).SetRange({{0, 1}, {0, 1}}).Get(), std::invalid_argument);
}

TEST(ExponentialFunctionTest, IsEqualByItsNumbers)
{
    const auto make = [] { return Factory({0.0f}, {1.0f}, 1.0); };
    EXPECT_EQ(*make().Get(), *make().Get());
    EXPECT_NE(*make().Get(), *make().SetDomain({0.0, 2.0}).Get());
    EXPECT_NE(*make().Get(), *make().SetRange({{0.0, 1.0}}).Get());
    EXPECT_NE(*make().Get(), *Factory({0.5f}, {1.0f}, 1.0).Get());
    EXPECT_NE(*make().Get(), *Factory({0.0f}, {0.5f}, 1.0).Get());
    EXPECT_NE(*make().Get(), *Factory({0.0f}, {1.0f}, 2.0).Get());
}

TEST(ExponentialFunctionTest, Prints)
{
    std::ostringstream stream;
    stream << *Factory({0.0f}, {0.5f}, 1.5).SetRange({{0, 1}}).Get();
    EXPECT_EQ(stream.str(), "Exponential(Domain [0 1], Range [0 1], C0 (0), C1 (0.5), N 1.5)");
}

TEST(MidpointToExponentTest, TheMiddleIsLinear)
{
    EXPECT_EQ(MidpointToExponent(0.5), 1.0);
}

TEST(MidpointToExponentTest, TheFunctionReachesOneHalfThere)
{
    for (const double midpoint : {0.01, 0.25, 0.3, 0.75, 0.99})
        EXPECT_NEAR(std::pow(midpoint, MidpointToExponent(midpoint)), 0.5, 1e-12) << midpoint;
}

TEST(MidpointToExponentTest, EndsAndBeyondCountAsTheNearestUsableMidpoint)
{
    EXPECT_NEAR(MidpointToExponent(0.0), 0.05, 1e-15); // 2^-20 to the power of 1/20 is one half.
    EXPECT_EQ(MidpointToExponent(-3.0), MidpointToExponent(0.0));
    EXPECT_TRUE(std::isfinite(MidpointToExponent(1.0)));
    EXPECT_EQ(MidpointToExponent(2.0), MidpointToExponent(1.0));
    EXPECT_GT(MidpointToExponent(1.0), 700'000.0);
}

TEST(MidpointToExponentTest, NanGivesNan)
{
    EXPECT_TRUE(std::isnan(MidpointToExponent(std::numeric_limits<double>::quiet_NaN())));
}

} // namespace
} // namespace OrvPaint
