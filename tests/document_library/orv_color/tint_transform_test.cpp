#include "orv_color/tint_transform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace OrvColor::Detail
{
namespace
{

using OrvSys::PdfObject;
using testing::DoubleNear;
using testing::ElementsAre;

constexpr double Near = 1e-12;

PdfObject Reals(const std::vector<double>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(items);
}

PdfObject Exponential(PdfObject::Entries more)
{
    more.emplace("FunctionType", PdfObject::Integer(2));
    more.emplace("Domain", Reals({0, 1}));
    more.emplace("N", PdfObject::Integer(1));
    return PdfObject::Dictionary(more);
}

PdfObject Sampled(PdfObject::Entries more, const std::string& samples)
{
    more.emplace("FunctionType", PdfObject::Integer(0));
    more.emplace("Domain", Reals({0, 1}));
    more.emplace("Range", Reals({0, 1}));
    more.emplace("Size", Reals({2}));
    more.emplace("BitsPerSample", PdfObject::Integer(8));
    return PdfObject::Stream(PdfObject::Dictionary(more), samples);
}

std::vector<double> Evaluate(const PdfObject& function, const std::vector<double>& inputs)
{
    const auto values = EvaluateFunction(function, inputs);
    if (!values)
        ADD_FAILURE() << "The function can't be evaluated.";
    return values.value_or(std::vector<double>());
}

TEST(EvaluateFunctionTest, ExponentialInterpolatesByItsExponent)
{
    const PdfObject function =
        Exponential({{"C0", Reals({0, 1})}, {"C1", Reals({1, 0.5})}, {"N", PdfObject::Integer(2)}});
    EXPECT_THAT(Evaluate(function, {0.5}), ElementsAre(DoubleNear(0.25, Near), DoubleNear(0.875, Near)));
}

TEST(EvaluateFunctionTest, ExponentialRunsFromZeroToOneByDefault)
{
    EXPECT_THAT(Evaluate(Exponential({}), {0.25}), ElementsAre(0.25));
}

TEST(EvaluateFunctionTest, InputsAndOutputsAreClamped)
{
    EXPECT_THAT(Evaluate(Exponential({}), {1.5}), ElementsAre(1.0));
    EXPECT_THAT(Evaluate(Exponential({{"Range", Reals({0.2, 0.4})}}), {0.9}), ElementsAre(0.4));
}

TEST(EvaluateFunctionTest, StitchingChoosesThePartAndEncodes)
{
    const PdfObject function = PdfObject::Dictionary(
        {{"FunctionType", PdfObject::Integer(3)},
         {"Domain", Reals({0, 1})},
         {"Bounds", Reals({0.5})},
         {"Encode", Reals({0, 1, 1, 0})},
         {"Functions", PdfObject::Array({Exponential({}), Exponential({{"C1", Reals({10})}})})}});
    EXPECT_THAT(Evaluate(function, {0.25}), ElementsAre(0.5));
    EXPECT_THAT(Evaluate(function, {0.5}), ElementsAre(10.0)); // A bound belongs to the part behind it.
    EXPECT_THAT(Evaluate(function, {1.0}), ElementsAre(0.0));
}

TEST(EvaluateFunctionTest, SamplesAreInterpolated)
{
    EXPECT_THAT(Evaluate(Sampled({}, std::string("\x00\xFF", 2)), {0.25}),
                ElementsAre(DoubleNear(0.25, Near)));
    EXPECT_THAT(Evaluate(Sampled({}, std::string("\x00\xFF", 2)), {1.0}), ElementsAre(1.0));
}

TEST(EvaluateFunctionTest, SamplesAreEncodedAndDecoded)
{
    const PdfObject function =
        Sampled({{"Encode", Reals({1, 0})}, {"Decode", Reals({0, 0.5})}}, std::string("\x00\xFF", 2));
    EXPECT_THAT(Evaluate(function, {0.0}), ElementsAre(0.5));
}

TEST(EvaluateFunctionTest, TheFirstInputOfSamplesVariesFastest)
{
    const PdfObject function = Sampled({{"Domain", Reals({0, 1, 0, 1})}, {"Size", Reals({2, 2})}},
                                       std::string("\x00\xFF\x33\x66", 4));
    EXPECT_THAT(Evaluate(function, {1.0, 0.0}), ElementsAre(1.0));
    EXPECT_THAT(Evaluate(function, {0.0, 1.0}), ElementsAre(DoubleNear(0.2, Near)));
    EXPECT_THAT(Evaluate(function, {0.5, 0.5}), ElementsAre(DoubleNear(0.4, Near)));
}

TEST(EvaluateFunctionTest, SamplesHaveAnyWidth)
{
    const auto evaluate = [](int bits, const std::string& samples) {
        return Evaluate(Sampled({{"BitsPerSample", PdfObject::Integer(bits)}}, samples), {1.0})[0];
    };
    EXPECT_EQ(evaluate(1, "\x40"), 1.0);
    EXPECT_NEAR(evaluate(4, "\x03"), 0.2, Near);
    EXPECT_NEAR(evaluate(12, std::string("\x00\x03\x33", 3)), 819.0 / 4095.0, Near);
    EXPECT_EQ(evaluate(32, std::string("\0\0\0\0\xFF\xFF\xFF\xFF", 8)), 1.0);
}

TEST(EvaluateFunctionTest, SamplesThatAreNotThereAreAFailure)
{
    EXPECT_FALSE(EvaluateFunction(Sampled({}, "\xFF"), {1.0}));
    EXPECT_FALSE(EvaluateFunction(Sampled({{"Size", Reals({1e18})}}, "\xFF"), {1.0}));
    EXPECT_FALSE(EvaluateFunction(Sampled({{"BitsPerSample", PdfObject::Integer(7)}}, "\xFF\xFF"), {1.0}));
}

TEST(EvaluateFunctionTest, CalculatorRuns)
{
    const PdfObject function =
        PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                                                 {"Domain", Reals({0, 1})},
                                                 {"Range", Reals({0, 1, 0, 0.5})}}),
                          "{dup 0.5 mul exch}");
    EXPECT_THAT(Evaluate(function, {1.0}), ElementsAre(0.5, 0.5));
}

TEST(EvaluateFunctionTest, MalformedFunctionsAreAFailure)
{
    EXPECT_FALSE(EvaluateFunction(PdfObject(), {1.0}));
    EXPECT_FALSE(EvaluateFunction(Exponential({{"FunctionType", PdfObject::Integer(1)}}), {1.0}));
    EXPECT_FALSE(EvaluateFunction(Exponential({{"C0", Reals({0, 0})}}), {1.0}));
    EXPECT_FALSE(EvaluateFunction(Exponential({{"N", PdfObject::Integer(-1)}}), {0.0}));
    EXPECT_FALSE(EvaluateFunction(Exponential({}), {1.0, 1.0}));
    EXPECT_FALSE(EvaluateFunction(Exponential({{"Range", Reals({0, 1, 0, 1})}}), {1.0}));
}

} // namespace
} // namespace OrvColor::Detail
