#include <orv_paint/stitching_function.h>

#include <orv_paint/exponential_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace OrvPaint
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using Pair = std::array<double, 2>;
using FunctionPointer = std::shared_ptr<const Function>;

FunctionPointer Part(float start, float end)
{
    return ExponentialFunction::Factory({start, 0.0f}, {end, 0.0f}, 1.0).Get();
}

StitchingFunction::Factory TwoParts(std::vector<double> bounds)
{
    return StitchingFunction::Factory({Part(0.0f, 1.0f), Part(1.0f, 0.5f)}, std::move(bounds));
}

TEST(StitchingFunctionTest, KeepsItsPartsBoundsAndEncode)
{
    const auto function = TwoParts({0.25}).SetEncode({{0, 1}, {1, 0}}).Get();
    EXPECT_EQ(function->GetType(), Function::Type::Stitching);
    EXPECT_EQ(function->GetFunctions().size(), 2u);
    EXPECT_THAT(function->GetBounds(), ElementsAre(0.25));
    EXPECT_THAT(function->GetEncode(), ElementsAre(Pair{0, 1}, Pair{1, 0}));
}

TEST(StitchingFunctionTest, InnerBoundsLeaveTheDomainAtZeroToOne)
{
    const auto function = TwoParts({0.25}).Get();
    EXPECT_THAT(function->GetDomain(), ElementsAre(Pair{0.0, 1.0}));
    EXPECT_FALSE(function->HasOuterBounds());
    EXPECT_THAT(function->GetInnerBounds(), ElementsAre(0.25));
}

TEST(StitchingFunctionTest, OuterBoundsAreTheDomainAndStayAmongTheBounds)
{
    const auto function = TwoParts({-1.0, 0.25, 3.0}).SetDomain({7.0, 8.0}).Get();
    EXPECT_THAT(function->GetDomain(), ElementsAre(Pair{-1.0, 3.0}));
    EXPECT_THAT(function->GetBounds(), ElementsAre(-1.0, 0.25, 3.0));
    EXPECT_TRUE(function->HasOuterBounds());
    EXPECT_THAT(function->GetInnerBounds(), ElementsAre(0.25));
}

TEST(StitchingFunctionTest, OnePartNeedsNoBoundsOrTwo)
{
    EXPECT_THAT(StitchingFunction::Factory({Part(0, 1)}, {}).Get()->GetInnerBounds(), IsEmpty());
    EXPECT_THAT(StitchingFunction::Factory({Part(0, 1)}, {0.0, 2.0}).Get()->GetInnerBounds(), IsEmpty());
    EXPECT_THROW(StitchingFunction::Factory({Part(0, 1)}, {0.5}).Get(), std::invalid_argument);
}

TEST(StitchingFunctionTest, DomainCanBeSetWithInnerBounds)
{
    EXPECT_THAT(TwoParts({0.25}).SetDomain({0.0, 2.0}).Get()->GetDomain(), ElementsAre(Pair{0.0, 2.0}));
}

TEST(StitchingFunctionTest, EncodesToTheUnitRangeByDefault)
{
    EXPECT_THAT(TwoParts({0.5}).Get()->GetEncode(), ElementsAre(Pair{0, 1}, Pair{0, 1}));
}

TEST(StitchingFunctionTest, HasARangeForEachOutputOfItsParts)
{
    EXPECT_EQ(TwoParts({0.5}).Get()->GetRange().size(), 2u);
    EXPECT_THROW(TwoParts({0.5}).SetRange({{0, 1}}).Get(), std::invalid_argument);
}

TEST(StitchingFunctionTest, IsZeroWhereAllPartsAre)
{
    const auto function = StitchingFunction::Factory({Part(0, 0), Part(0, 1)}, {0.5}).Get();
    EXPECT_FALSE(function->IsZero(0));
    EXPECT_TRUE(function->IsZero(1));
}

TEST(StitchingFunctionTest, IsZeroByItsOwnRangeToo)
{
    const auto function =
        StitchingFunction::Factory({Part(0, 0), Part(0, 1)}, {0.5}).SetRange({{0.0, 0.0}, {0.25, 1.0}}).Get();
    EXPECT_TRUE(function->IsZero(0));
    EXPECT_FALSE(function->IsZero(1));
    EXPECT_TRUE(function->IsZero(2));
}

TEST(StitchingFunctionTest, RefusesWhatDoesNotFit)
{
    const FunctionPointer oneOutput = ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).Get();
    EXPECT_THROW(StitchingFunction::Factory({}, {}).Get(), std::invalid_argument);
    EXPECT_THROW(StitchingFunction::Factory({nullptr}, {}).Get(), std::invalid_argument);
    EXPECT_THROW(StitchingFunction::Factory({Part(0, 1), oneOutput}, {0.5}).Get(), std::invalid_argument);
    EXPECT_THROW(TwoParts({}).Get(), std::invalid_argument);
    EXPECT_THROW(TwoParts({0.1, 0.2}).Get(), std::invalid_argument);
    EXPECT_THROW(TwoParts({0.1, 0.2, 0.3, 0.4}).Get(), std::invalid_argument);
    EXPECT_THROW(TwoParts({0.5}).SetEncode({{0, 1}}).Get(), std::invalid_argument);
}

TEST(StitchingFunctionTest, RefusesDeepNesting)
{
    FunctionPointer function = Part(0, 1);
    for (std::size_t level = 0; level < Function::MaxDepth; ++level)
        function = StitchingFunction::Factory({function}, {}).Get();
    EXPECT_EQ(function->GetDepth(), Function::MaxDepth);
    EXPECT_THROW(StitchingFunction::Factory({function}, {}).Get(), std::length_error);
}

TEST(StitchingFunctionTest, IsEqualByPartsBoundsAndEncode)
{
    EXPECT_EQ(*TwoParts({0.5}).Get(), *TwoParts({0.5}).Get());
    EXPECT_NE(*TwoParts({0.5}).Get(), *TwoParts({0.6}).Get());
    EXPECT_NE(*TwoParts({0.5}).Get(), *TwoParts({0.0, 0.5, 1.0}).Get());
    EXPECT_NE(*TwoParts({0.5}).Get(), *TwoParts({0.5}).SetEncode({{0, 1}, {1, 0}}).Get());
    EXPECT_NE(*TwoParts({0.5}).Get(), *StitchingFunction::Factory({Part(0, 1), Part(1, 0)}, {0.5}).Get());
}

TEST(StitchingFunctionTest, DiffersFromItsOnlyPart)
{
    const FunctionPointer part = Part(0, 1);
    const FunctionPointer function = StitchingFunction::Factory({part}, {}).Get();
    EXPECT_NE(*function, *part);
    EXPECT_NE(*part, *function);
}

TEST(StitchingFunctionTest, Prints)
{
    std::ostringstream stream;
    stream << *StitchingFunction::Factory({Part(0, 1), Part(1, 0)}, {0.5}).Get();
    EXPECT_EQ(stream.str(), "Stitching(Domain [0 1], Bounds [0.5], Encode [0 1 0 1], "
                            "Exponential(Domain [0 1], C0 (0, 0), C1 (1, 0), N 1), "
                            "Exponential(Domain [0 1], C0 (1, 0), C1 (0, 0), N 1))");
}

} // namespace
} // namespace OrvPaint
