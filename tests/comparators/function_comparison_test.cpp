#include "comparators/function_comparison.h"

#include "support/paint_makers.h"

#include <orv_color/color_policies.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>

namespace HarrowSupport::Testing
{

using Comparators::CompareFunctions;
using Comparators::ComponentPair;

namespace
{

using Pairs = std::vector<ComponentPair>;
using Ranges = std::vector<std::array<double, 2>>;
using OrvColor::Unmapped;

const double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The pairs with left and right swapped.
Pairs Mirrored(Pairs pairs)
{
    for (ComponentPair& pair : pairs)
        std::swap(pair.first, pair.second);
    return pairs;
}

void ExpectSame(const Pairs& pairs, const FunctionPointer& left, const FunctionPointer& right, bool same)
{
    EXPECT_EQ(CompareFunctions(pairs, *left, *right), same) << "left against right";
    EXPECT_EQ(CompareFunctions(Mirrored(pairs), *right, *left), same) << "right against left";
}

void ExpectEqual(const Pairs& pairs, const FunctionPointer& left, const FunctionPointer& right)
{
    ExpectSame(pairs, left, right, true);
}

void ExpectDifferent(const Pairs& pairs, const FunctionPointer& left, const FunctionPointer& right)
{
    ExpectSame(pairs, left, right, false);
}

const Pairs one = {{0, 0}};
const Pairs none = {};

FunctionPointer RampOn(double low, double high)
{
    return OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).SetDomain({low, high}).Get();
}

FunctionPointer RampWithin(Ranges ranges)
{
    std::vector<OrvColor::Component> zeros(ranges.size(), 0.0f);
    std::vector<OrvColor::Component> ones(ranges.size(), 1.0f);
    return OrvPaint::ExponentialFunction::Factory(zeros, ones, 1.0).SetRange(std::move(ranges)).Get();
}

OrvPaint::StitchingFunction::Factory TwoParts(std::vector<double> bounds = {0.5})
{
    return OrvPaint::StitchingFunction::Factory(
        {Ramp({0.0f, 0.0f}, {1.0f, 0.5f}), Ramp({1.0f, 0.5f}, {0.0f, 0.0f})}, std::move(bounds));
}

/// A function of no class that the comparison knows.
class UnknownFunction : public OrvPaint::Function
{
public:
    UnknownFunction() : Function(static_cast<Type>(7), {{0.0, 1.0}}, {}, 1, 0) {}
    void Print(std::ostream&) const override {}
    bool IsZero(std::size_t) const override { return false; }
};

} // namespace

TEST(CompareFunctions, OfTwoClassesDiffer)
{
    const FunctionPointer ramp = Ramp({0.0f}, {1.0f});
    ExpectDifferent(one, ramp, Stitched(ramp, ramp));
    ExpectDifferent(one, ramp, SampledFunction("ab"));
    ExpectDifferent(none, ramp, SampledFunction("ab"));
}

TEST(CompareFunctions, OfAnUnknownClassAreEqual)
{
    ExpectEqual({{0, 1}}, std::make_shared<UnknownFunction>(), std::make_shared<UnknownFunction>());
}

TEST(CompareFunctions, KeptWholeGoByTheLibrary)
{
    ExpectEqual(one, SampledFunction("ab"), SampledFunction("ab"));
    ExpectDifferent(one, SampledFunction("ab"), SampledFunction("ac"));
    ExpectDifferent(none, SampledFunction("ab"), SampledFunction("ac"));
}

TEST(CompareFunctions, KeptWholeDifferUnderSwappedComponents)
{
    const FunctionPointer function = SampledFunction("ab");
    ExpectDifferent({{0, 1}}, function, function);
    ExpectDifferent({{0, 0}, {1, 2}}, function, function);
    ExpectDifferent({{0, Unmapped}}, function, function);
    ExpectEqual({{0, 0}, {1, 1}, {Unmapped, Unmapped}}, function, function);
}

TEST(CompareFunctions, OfAnotherExponentDifferExactly)
{
    ExpectEqual(one, Ramp({0.0f}, {1.0f}, 2.0), Ramp({0.0f}, {1.0f}, 2.0));
    ExpectDifferent(one, Ramp({0.0f}, {1.0f}, 2.0), Ramp({0.0f}, {1.0f}, std::nextafter(2.0, 3.0)));
    ExpectDifferent(none, Ramp({0.0f}, {1.0f}, 2.0), Ramp({0.0f}, {1.0f}, std::nextafter(2.0, 3.0)));
    const FunctionPointer unclear = Ramp({0.0f}, {1.0f}, notANumber);
    ExpectDifferent(one, unclear, unclear);
}

TEST(CompareFunctions, OfAnotherDomainDifferExactly)
{
    ExpectDifferent(one, RampOn(0.0, 1.0), RampOn(0.0, std::nextafter(1.0, 2.0)));
    ExpectDifferent(one, RampOn(0.0, 1.0), RampOn(std::nextafter(0.0, 1.0), 1.0));
    ExpectDifferent(none, RampOn(0.0, 1.0), RampOn(0.0, 2.0));
}

TEST(CompareFunctions, WithoutPairsHaveOnlyWhatIsCommonToAllComponents)
{
    ExpectEqual(none, Ramp({0.0f}, {1.0f}), Ramp({0.5f}, {0.25f}));
    ExpectEqual(none, TwoParts().Get(), Stitched(Ramp({0.5f}, {0.5f}), SampledFunction("ab")));
}

TEST(CompareFunctions, OutputsCloserThanTheToleranceAreEqual)
{
    const float below = std::nextafter(1e-5f, 0.0f);
    ExpectEqual(one, Ramp({0.0f}, {0.0f}), Ramp({below}, {0.0f}));
    ExpectDifferent(one, Ramp({0.0f}, {0.0f}), Ramp({1e-5f}, {0.0f}));
    ExpectEqual(one, Ramp({0.0f}, {0.0f}), Ramp({0.0f}, {below}));
    ExpectDifferent(one, Ramp({0.0f}, {0.0f}), Ramp({0.0f}, {1e-5f}));
}

TEST(CompareFunctions, OutputsThatAreNoNumbersMatchNothing)
{
    const FunctionPointer unclear = Ramp({std::nanf("")}, {1.0f});
    ExpectDifferent(one, unclear, unclear);
}

TEST(CompareFunctions, OutputsAreLinedUpByPairs)
{
    const FunctionPointer left = Ramp({0.0f, 0.25f}, {1.0f, 0.5f});
    const FunctionPointer right = Ramp({0.25f, 0.0f}, {0.5f, 1.0f});
    ExpectEqual({{0, 1}, {1, 0}}, left, right);
    ExpectDifferent({{0, 0}, {1, 1}}, left, right);
    // The last pair counts as the first one does.
    ExpectDifferent({{0, 1}, {1, 1}}, left, right);
}

TEST(CompareFunctions, RangesAreLinedUpByPairsAndExact)
{
    const FunctionPointer left = RampWithin({{0.0, 1.0}, {0.0, 0.5}});
    ExpectEqual({{0, 1}, {1, 0}}, left, RampWithin({{0.0, 0.5}, {0.0, 1.0}}));
    ExpectDifferent({{0, 0}}, left, RampWithin({{0.0, 0.5}, {0.0, 1.0}}));
    ExpectDifferent({{0, 0}}, left, RampWithin({{0.0, std::nextafter(1.0, 2.0)}, {0.0, 0.5}}));
    ExpectDifferent({{0, 0}}, left, RampWithin({{std::nextafter(0.0, -1.0), 1.0}, {0.0, 0.5}}));
    // A component that no pair names has no say.
    ExpectEqual({{0, 0}}, left, RampWithin({{0.0, 1.0}, {0.0, 0.75}}));
}

TEST(CompareFunctions, AStatedRangeDiffersFromNone)
{
    ExpectDifferent(one, RampWithin({{0.0, 1.0}}), Ramp({0.0f}, {1.0f}));
}

TEST(CompareFunctions, AComponentOfOneSideAloneHasToBeZeroThere)
{
    const FunctionPointer two = Ramp({0.0f, 0.0f}, {1.0f, 0.0f});
    const FunctionPointer single = Ramp({0.0f}, {1.0f});
    ExpectEqual({{0, 0}, {1, Unmapped}}, two, single);
    ExpectDifferent({{0, 0}, {1, Unmapped}}, Ramp({0.0f, 0.0f}, {1.0f, 0.5f}), single);
    ExpectDifferent({{0, 0}, {1, Unmapped}}, Ramp({0.0f, 1e-6f}, {1.0f, 0.0f}), single);
}

TEST(CompareFunctions, AComponentOfNeitherSideHasNoSay)
{
    ExpectEqual({{Unmapped, Unmapped}}, Ramp({0.0f}, {1.0f}), Ramp({0.5f}, {0.5f}));
}

TEST(CompareFunctions, APairBehindAComponentOfOneSideStillCounts)
{
    const FunctionPointer left = Ramp({0.0f, 0.0f}, {0.0f, 1.0f});
    ExpectEqual({{0, Unmapped}, {1, 0}}, left, Ramp({0.0f}, {1.0f}));
    ExpectDifferent({{0, Unmapped}, {1, 0}}, left, Ramp({0.0f}, {0.5f}));
    ExpectDifferent({{Unmapped, Unmapped}, {1, 0}}, left, Ramp({0.0f}, {0.5f}));
}

TEST(CompareStitchingFunctions, OfEqualPartsAreEqual)
{
    ExpectEqual({{0, 0}, {1, 1}}, TwoParts().Get(), TwoParts().Get());
}

TEST(CompareStitchingFunctions, OfOtherBoundsDifferExactly)
{
    ExpectDifferent(one, TwoParts().Get(), TwoParts({std::nextafter(0.5, 1.0)}).Get());
    ExpectDifferent(none, TwoParts().Get(), TwoParts({std::nextafter(0.5, 1.0)}).Get());
    ExpectDifferent(none, TwoParts().Get(), TwoParts({0.0, 0.5, 1.0}).Get());
}

TEST(CompareStitchingFunctions, OfAnotherDomainDifferExactly)
{
    ExpectDifferent(none, TwoParts().Get(), TwoParts().SetDomain({0.0, std::nextafter(1.0, 2.0)}).Get());
}

TEST(CompareStitchingFunctions, OfAnotherEncodingDifferExactly)
{
    const auto encoded = [](double last) { return TwoParts().SetEncode({{0.0, 1.0}, {1.0, last}}).Get(); };
    ExpectEqual(one, encoded(0.0), encoded(0.0));
    ExpectDifferent(one, encoded(0.0), encoded(std::nextafter(0.0, 1.0)));
    ExpectDifferent(none, encoded(0.0), encoded(0.25));
    ExpectDifferent(one, encoded(notANumber), encoded(notANumber));
}

TEST(CompareStitchingFunctions, OfAnotherNumberOfPartsDiffer)
{
    const FunctionPointer ramp = Ramp({0.0f}, {1.0f});
    // Two inner bounds stand for three parts, and the same number with outer ones for one part.
    const FunctionPointer three = OrvPaint::StitchingFunction::Factory({ramp, ramp, ramp}, {0.0, 1.0}).Get();
    const FunctionPointer single = OrvPaint::StitchingFunction::Factory({ramp}, {0.0, 1.0}).Get();
    ExpectDifferent(none, three, single);
}

TEST(CompareStitchingFunctions, EachPartCounts)
{
    const FunctionPointer up = Ramp({0.0f}, {1.0f});
    const FunctionPointer down = Ramp({1.0f}, {0.0f});
    ExpectDifferent(one, Stitched(up, down), Stitched(up, up));
    ExpectDifferent(one, Stitched(down, up), Stitched(up, up));
    ExpectDifferent(one, Stitched(up, down), Stitched(down, up));
}

TEST(CompareStitchingFunctions, PartsAreComparedUnderThePair)
{
    const FunctionPointer left =
        Stitched(Ramp({0.0f, 0.25f}, {1.0f, 0.5f}), Ramp({1.0f, 0.5f}, {0.0f, 0.0f}));
    const FunctionPointer right =
        Stitched(Ramp({0.25f, 0.0f}, {0.5f, 1.0f}), Ramp({0.5f, 1.0f}, {0.0f, 0.0f}));
    ExpectEqual({{0, 1}, {1, 0}}, left, right);
    ExpectDifferent({{0, 0}}, left, right);
    ExpectDifferent({{0, 1}, {1, 1}}, left, right);
}

TEST(CompareStitchingFunctions, ThePairOfPartsHasTheLeftComponentFirst)
{
    const FunctionPointer left =
        Stitched(Ramp({0.0f, 0.25f}, {1.0f, 0.5f}), Ramp({1.0f, 0.5f}, {0.0f, 0.0f}));
    const FunctionPointer right =
        Stitched(Ramp({0.75f, 0.0f}, {0.75f, 1.0f}), Ramp({0.75f, 1.0f}, {0.75f, 0.0f}));
    ExpectEqual({{0, 1}}, left, right);
    ExpectDifferent({{1, 0}}, left, right);
}

TEST(CompareStitchingFunctions, PartsThatAreKeptWholeDifferUnderSwappedComponents)
{
    const FunctionPointer function = Stitched(SampledFunction("ab"), SampledFunction("cd"));
    ExpectEqual(one, function, function);
    ExpectDifferent({{0, 1}}, function, function);
}

TEST(CompareStitchingFunctions, PartsOfTwoClassesDiffer)
{
    ExpectDifferent(one, Stitched(SampledFunction("ab"), SampledFunction("ab")),
                    Stitched(SampledFunction("ab"), Ramp({0.0f}, {1.0f})));
}

TEST(CompareStitchingFunctions, RangesAreLinedUpByPairsAndExact)
{
    const auto within = [](Ranges ranges) { return TwoParts().SetRange(std::move(ranges)).Get(); };
    const FunctionPointer left = within({{0.0, 1.0}, {0.0, 0.5}});
    ExpectEqual({{0, 0}, {1, 1}}, left, within({{0.0, 1.0}, {0.0, 0.5}}));
    ExpectDifferent({{1, 1}}, left, within({{0.0, 1.0}, {0.0, std::nextafter(0.5, 0.0)}}));
    ExpectEqual({{0, 0}}, left, within({{0.0, 1.0}, {0.0, std::nextafter(0.5, 0.0)}}));
}

TEST(CompareStitchingFunctions, AComponentOfOneSideAloneHasToBeZeroInEveryPart)
{
    const FunctionPointer single = Stitched(Ramp({0.0f}, {1.0f}), Ramp({1.0f}, {0.0f}));
    const auto two = [](float inLastPart) {
        return Stitched(Ramp({0.0f, 0.0f}, {1.0f, 0.0f}), Ramp({1.0f, 0.0f}, {0.0f, inLastPart}));
    };
    ExpectEqual({{0, 0}, {1, Unmapped}}, two(0.0f), single);
    ExpectDifferent({{0, 0}, {1, Unmapped}}, two(0.5f), single);
    ExpectEqual({{Unmapped, Unmapped}, {0, 0}}, two(0.5f), single);
}

TEST(CompareStitchingFunctions, NestDeeply)
{
    const auto nested = [](float end) {
        FunctionPointer function = Ramp({0.0f}, {end});
        for (int depth = 0; depth < 40; ++depth)
            function = OrvPaint::StitchingFunction::Factory({function}, {}).Get();
        return function;
    };
    ExpectEqual(one, nested(1.0f), nested(1.0f));
    ExpectDifferent(one, nested(1.0f), nested(0.5f));
}

TEST(CompareStitchingFunctions, ThatHoldTheNextTwiceCostTheirNumber)
{
    const auto expanding = [](float end) {
        FunctionPointer function = Ramp({0.0f}, {end});
        for (int depth = 0; depth < 40; ++depth)
            function = Stitched(function, function);
        return function;
    };
    ExpectEqual(one, expanding(1.0f), expanding(1.0f));
    ExpectDifferent(one, expanding(1.0f), expanding(0.5f));
}

TEST(CompareStitchingFunctions, PartsThatAreEqualInOneComponentAreComparedInTheNext)
{
    const auto nested = [](float second) {
        const FunctionPointer part =
            Stitched(Ramp({0.0f, 0.0f}, {1.0f, second}), Ramp({0.0f, 0.0f}, {1.0f, second}));
        return Stitched(part, part);
    };
    ExpectEqual({{0, 0}}, nested(0.5f), nested(0.25f));
    ExpectDifferent({{0, 0}, {1, 1}}, nested(0.5f), nested(0.25f));
}

} // namespace HarrowSupport::Testing
