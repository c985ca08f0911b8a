#include "comparators/decoded_data_comparison.h"

#include "comparators/work_counters.h"
#include "document_library/orv_img/stored_samples.h"
#include "support/picture_plan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace HarrowSupport::Testing
{

namespace
{

using Comparators::ChannelPair;
using Comparators::SoftMaskWeighting;
using Pairs = std::vector<ChannelPair>;

constexpr double sampleGuard = 1e-07;
constexpr double decodeTolerance = 1.0 / 131072.0;

double Highest(std::size_t bits)
{
    return std::ldexp(1.0, static_cast<int>(bits)) - 1.0;
}

/// A picture of one row and one channel.
SourcePointer Row(std::size_t bits, const Samples& samples)
{
    PicturePlan plan = MaskPlan(samples);
    plan.width = samples.size();
    plan.height = 1;
    plan.bits = bits;
    return MakeSource(plan);
}

/// A picture of one row in several channels of 8 bits.
SourcePointer Pixels(std::size_t channels, const Samples& samples)
{
    PicturePlan plan;
    plan.width = samples.size() / channels;
    plan.height = 1;
    plan.samples = samples;
    plan.channels.clear();
    for (std::size_t i = 0; i < channels; ++i)
        plan.channels.push_back(ColorChannel(std::string(1, static_cast<char>('a' + i))));
    return MakeSource(plan);
}

Pairs OnePair(const Range& left = identity, const Range& right = identity)
{
    return {ChannelPair(ChannelAt(0, left), ChannelAt(0, right))};
}

bool CompareOneWay(const SourcePointer& left, const SourcePointer& right, const Pairs& pairs,
                   const SoftMaskWeighting& weighting = {})
{
    Comparators::HeldBuffers buffers;
    return Comparators::CompareDecodedData(left, right, pairs, weighting, buffers);
}

Pairs Mirrored(Pairs pairs)
{
    for (ChannelPair& pair : pairs)
        std::swap(pair.first, pair.second);
    return pairs;
}

/// Both ways round, which have to agree.
bool AreEqual(const SourcePointer& left, const SourcePointer& right, const Pairs& pairs,
              SoftMaskWeighting weighting = {})
{
    const bool forwards = CompareOneWay(left, right, pairs, weighting);
    std::swap(weighting.left, weighting.right);
    EXPECT_EQ(CompareOneWay(right, left, Mirrored(pairs), weighting), forwards) << "the other way round";
    return forwards;
}

SoftMaskWeighting WeighedBy(const SourcePointer& left, const SourcePointer& right,
                            const Range& leftRange = identity, const Range& rightRange = identity)
{
    SoftMaskWeighting weighting;
    weighting.engaged = true;
    weighting.left = {left, ChannelAt(0, leftRange)};
    weighting.right = {right, ChannelAt(0, rightRange)};
    return weighting;
}

/// A range that takes the sample 0 to just that number.
Range StartingAt(double low)
{
    return {low, 1.0};
}

using Depths = std::pair<std::size_t, std::size_t>;

/// Every pair of depths.
class DepthPairs : public ::testing::TestWithParam<Depths>
{
protected:
    SourcePointer left = Row(GetParam().first, {0});
    SourcePointer right = Row(GetParam().second, {0});
    double finestSteps = Highest(std::max(GetParam().first, GetParam().second));
};

std::vector<Depths> AllDepthPairs()
{
    std::vector<Depths> all;
    for (const std::size_t left : {1, 2, 4, 8, 16}) {
        for (const std::size_t right : {1, 2, 4, 8, 16})
            all.emplace_back(left, right);
    }
    return all;
}

} // namespace

TEST_P(DepthPairs, NumbersMayBeHalfAStepOfTheFinerSideAndTheGuardApart)
{
    const double tolerance = 1.0 / (2.0 * finestSteps) + sampleGuard;
    EXPECT_TRUE(AreEqual(left, right, OnePair(StartingAt(0.0), StartingAt(tolerance))));
    EXPECT_FALSE(AreEqual(left, right, OnePair(StartingAt(0.0), StartingAt(std::nextafter(tolerance, 1.0)))));
}

TEST_P(DepthPairs, WeighedNumbersMayBeTwoStepsOfTheFinestDepthAndTheGuardApart)
{
    // At a depth of one bit, two steps and the guard are more than numbers can be apart.
    const double tolerance = 2.0 / finestSteps + sampleGuard;
    const SoftMaskWeighting weighting = WeighedBy(Row(1, {1}), Row(1, {1}));
    if (tolerance < 1.0) {
        EXPECT_TRUE(AreEqual(left, right, OnePair(StartingAt(0.0), StartingAt(tolerance)), weighting));
        EXPECT_FALSE(AreEqual(
            left, right, OnePair(StartingAt(0.0), StartingAt(std::nextafter(tolerance, 1.0))), weighting));
    } else {
        EXPECT_TRUE(AreEqual(left, right, OnePair(StartingAt(0.0), StartingAt(1.0)), weighting));
    }
}

TEST_P(DepthPairs, TheDepthsOfTheMasksCountForTheToleranceOfWeighedNumbers)
{
    const double tolerance = 2.0 / Highest(16) + sampleGuard;
    for (const SoftMaskWeighting& weighting :
         {WeighedBy(Row(16, {65535}), Row(1, {1})), WeighedBy(Row(1, {1}), Row(16, {65535}))}) {
        EXPECT_TRUE(AreEqual(left, right, OnePair(StartingAt(0.0), StartingAt(tolerance)), weighting));
        EXPECT_FALSE(AreEqual(
            left, right, OnePair(StartingAt(0.0), StartingAt(std::nextafter(tolerance, 1.0))), weighting));
    }
}

TEST_P(DepthPairs, FullAndEmptySamplesAreTheSameAtAllDepths)
{
    const auto ends = [](std::size_t bits) { return Row(bits, {0, static_cast<unsigned>(Highest(bits))}); };
    EXPECT_TRUE(AreEqual(ends(GetParam().first), ends(GetParam().second), OnePair()));
    EXPECT_TRUE(AreEqual(ends(GetParam().first), ends(GetParam().second), OnePair(inverted, inverted)));
    EXPECT_FALSE(AreEqual(ends(GetParam().first), ends(GetParam().second), OnePair(identity, inverted)));
}

TEST_P(DepthPairs, TheLastSampleOfALargePictureCounts)
{
    // So many samples that those of 16 bits have their table, too, well before the end.
    constexpr std::size_t count = 70000;
    const auto highest = [](std::size_t bits) { return (1u << bits) - 1u; };
    const auto row = [&](std::size_t bits, unsigned last) {
        Samples samples(count, highest(bits));
        samples.back() = last;
        return Row(bits, samples);
    };
    const auto [leftBits, rightBits] = GetParam();
    const Pairs asNumbers = OnePair(identity, {0.00001, 1.0});
    const SourcePointer full = row(leftBits, highest(leftBits));
    EXPECT_TRUE(AreEqual(full, row(rightBits, highest(rightBits)), asNumbers));
    EXPECT_FALSE(AreEqual(full, row(rightBits, highest(rightBits) - 1), asNumbers));
    EXPECT_FALSE(
        AreEqual(row(leftBits, highest(leftBits) - 1), row(rightBits, highest(rightBits)), asNumbers));
}

INSTANTIATE_TEST_SUITE_P(Of, DepthPairs, ::testing::ValuesIn(AllDepthPairs()), [](const auto& depths) {
    return std::to_string(depths.param.first) + "And" + std::to_string(depths.param.second) + "Bits";
});

TEST(CompareDecodedData, TheSameAt8And16BitsIsEqual)
{
    EXPECT_TRUE(
        AreEqual(Row(8, {0, 1, 77, 254, 255}), Row(16, {0, 257, 77 * 257, 254 * 257, 65535}), OnePair()));
    EXPECT_FALSE(
        AreEqual(Row(8, {0, 1, 77, 254, 255}), Row(16, {0, 257, 77 * 257 + 1, 254 * 257, 65535}), OnePair()));
}

TEST(CompareDecodedData, TheToleranceOf8BitsHoldsFor1BitAgainst8)
{
    EXPECT_TRUE(AreEqual(Row(1, {0, 1}), Row(8, {0, 255}), OnePair()));
    EXPECT_FALSE(AreEqual(Row(1, {0, 1}), Row(8, {1, 255}), OnePair()));
    EXPECT_FALSE(AreEqual(Row(1, {0, 1}), Row(8, {0, 254}), OnePair()));
}

TEST(CompareDecodedData, InvertedSamplesUnderAnInvertedRangeAreEqual)
{
    EXPECT_TRUE(AreEqual(Row(8, {0, 1, 100, 255}), Row(8, {255, 254, 155, 0}), OnePair(identity, inverted)));
    EXPECT_FALSE(AreEqual(Row(8, {0, 1, 100, 255}), Row(8, {0, 1, 100, 255}), OnePair(identity, inverted)));
    EXPECT_FALSE(AreEqual(Row(8, {0, 1, 100, 255}), Row(8, {255, 254, 155, 1}), OnePair(identity, inverted)));
}

TEST(CompareDecodedData, PlainSamplesAreComparedByTheirBytes)
{
    // Under this range all samples decode to the same number, and yet they differ.
    const Range flat = {0.5, 0.5};
    EXPECT_FALSE(AreEqual(Row(8, {1, 2, 3}), Row(8, {1, 2, 4}), OnePair(flat, flat)));
    EXPECT_TRUE(AreEqual(Row(8, {1, 2, 3}), Row(8, {1, 2, 3}), OnePair(flat, flat)));
}

TEST(CompareDecodedData, RangesThatAgreeToWithinTheDecodeToleranceArePlain)
{
    const SourcePointer left = Row(8, {1, 2, 3});
    const SourcePointer right = Row(8, {1, 2, 4});
    const double inside = std::nextafter(decodeTolerance, 0.0);
    EXPECT_FALSE(AreEqual(left, right, OnePair({0.0, 0.0}, {inside, 0.0})));
    EXPECT_FALSE(AreEqual(left, right, OnePair({0.0, 0.0}, {0.0, inside})));
    EXPECT_TRUE(AreEqual(left, right, OnePair({0.0, 0.0}, {decodeTolerance, 0.0})));
    EXPECT_TRUE(AreEqual(left, right, OnePair({0.0, 0.0}, {0.0, decodeTolerance})));
}

TEST(CompareDecodedData, ChannelsThatAreNotPairedArePartOfPlainSamplesOnly)
{
    const SourcePointer left = Pixels(2, {1, 2, 3, 4});
    const SourcePointer right = Pixels(2, {1, 2, 3, 99});
    EXPECT_TRUE(AreEqual(left, right, {ChannelPair(ChannelAt(0), ChannelAt(0))}));
    EXPECT_FALSE(AreEqual(left, right, {ChannelPair(ChannelAt(1), ChannelAt(1))}));
    const ChannelPair first(ChannelAt(0), ChannelAt(0));
    EXPECT_FALSE(AreEqual(left, right, {first, first}));
}

TEST(CompareDecodedData, ChannelsArePairedAcross)
{
    const SourcePointer left = Pixels(3, {1, 2, 3, 4, 5, 6});
    const SourcePointer right = Pixels(2, {3, 1, 6, 4});
    const Pairs across = {ChannelPair(ChannelAt(0), ChannelAt(1)), ChannelPair(ChannelAt(2), ChannelAt(0))};
    EXPECT_TRUE(AreEqual(left, right, across));
    EXPECT_FALSE(AreEqual(left, Pixels(2, {3, 1, 6, 5}), across));
    EXPECT_FALSE(AreEqual(left, Pixels(2, {3, 1, 7, 4}), across));
}

TEST(CompareDecodedData, BitsBehindTheLastSampleOfARowAreNotLookedAt)
{
    const auto rowOf = [](unsigned lastBits, unsigned lastSample) {
        OrvImg::PictureBuffer::Factory factory(3, 1, 1, 2);
        *factory.GetRowPtr(0) = static_cast<unsigned char>(0b01100000u | lastSample << 2 | lastBits);
        return std::make_shared<OrvImg::BufferedPictureSource>(
            factory.GetResult(), OrvImg::DeviceGray(), std::vector<OrvImg::ChannelInfo>{ColorChannel("Gray")},
            nullptr, 0.0, 0.0, nullptr);
    };
    EXPECT_TRUE(AreEqual(rowOf(0, 1), rowOf(3, 1), OnePair()));
    EXPECT_FALSE(AreEqual(rowOf(0, 1), rowOf(0, 2), OnePair()));
}

TEST(CompareDecodedData, EverySampleOfARowCountsAtEachDepth)
{
    for (const std::size_t bits : {1, 2, 4, 8, 16}) {
        for (std::size_t width = 1; width <= 19; ++width) {
            for (std::size_t changed = 0; changed < width; ++changed) {
                Samples samples(width, 0);
                const SourcePointer left = Row(bits, samples);
                samples[changed] = 1;
                EXPECT_FALSE(CompareOneWay(left, Row(bits, samples), OnePair()))
                    << "sample " << changed << " of " << width << " of " << bits << " bits";
                EXPECT_FALSE(CompareOneWay(left, Row(bits, samples), OnePair(identity, {0.0, 0.999})))
                    << "sample " << changed << " of " << width << " of " << bits << " bits as number";
            }
        }
    }
}

TEST(CompareDecodedData, EveryRowCounts)
{
    for (const std::size_t bits : {1, 8}) {
        PicturePlan plan = MaskPlan(Samples(15, 0));
        plan.width = 3;
        plan.height = 5;
        plan.bits = bits;
        const SourcePointer left = MakeSource(plan);
        for (std::size_t changed = 0; changed < 15; ++changed) {
            plan.samples.assign(15, 0);
            plan.samples[changed] = 1;
            EXPECT_FALSE(AreEqual(left, MakeSource(plan), OnePair())) << changed;
            EXPECT_FALSE(AreEqual(left, MakeSource(plan), OnePair(identity, {0.0, 0.999}))) << changed;
        }
    }
}

TEST(CompareDecodedData, NumbersAreLimitedTo0And1)
{
    EXPECT_TRUE(AreEqual(Row(8, {0, 255}), Row(8, {0, 255}), OnePair({-5.0, 9.0}, {0.0, 1.0})));
    EXPECT_TRUE(AreEqual(Row(8, {0, 1}), Row(8, {255, 0}), OnePair({2.0, 3.0}, {1.0, 1.0})));
    EXPECT_TRUE(AreEqual(Row(8, {0, 1}), Row(8, {255, 0}), OnePair({-2.0, -3.0}, {0.0, 0.0})));
}

TEST(CompareDecodedData, NumbersThatAreNoneDifferFromNothing)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(AreEqual(Row(8, {0}), Row(8, {0}), OnePair({-infinity, infinity}, identity)));
}

TEST(CompareDecodedData, WithoutRowsOrColumnsAllIsEqual)
{
    for (const std::size_t width : {0, 2}) {
        PicturePlan plan = MaskPlan({});
        plan.width = width;
        plan.height = 2 - width;
        EXPECT_TRUE(AreEqual(MakeSource(plan), MakeSource(plan), OnePair(identity, inverted)));
        EXPECT_TRUE(AreEqual(MakeSource(plan), MakeSource(plan), OnePair()));
        EXPECT_TRUE(CompareOneWay(MakeSource(plan), Row(8, {7}), OnePair()));
    }
}

TEST(CompareDecodedData, WithoutPairsAllIsEqual)
{
    EXPECT_TRUE(AreEqual(Row(8, {1}), Row(16, {999}), {}));
    EXPECT_TRUE(AreEqual(Row(8, {1}), Row(8, {9}), {}));
}

TEST(CompareDecodedData, AWeightOf0HidesAllColors)
{
    const SourcePointer mask = Row(8, {255, 0, 255});
    EXPECT_TRUE(AreEqual(Row(8, {9, 0, 9}), Row(8, {9, 255, 9}), OnePair(), WeighedBy(mask, mask)));
    EXPECT_FALSE(AreEqual(Row(8, {9, 0, 9}), Row(8, {9, 255, 40}), OnePair(), WeighedBy(mask, mask)));
}

TEST(CompareDecodedData, EachSideIsWeighedByItsOwnMask)
{
    const SourcePointer full = Row(8, {255});
    const SourcePointer half = Row(8, {51});
    EXPECT_TRUE(AreEqual(Row(8, {50}), Row(8, {250}), OnePair(), WeighedBy(full, half)));
    EXPECT_FALSE(AreEqual(Row(8, {250}), Row(8, {50}), OnePair(), WeighedBy(full, half)));
}

TEST(CompareDecodedData, WeightsHaveTheirOwnDecodeRanges)
{
    const SourcePointer mask = Row(8, {255, 0});
    const SourcePointer negative = Row(8, {0, 255});
    EXPECT_TRUE(
        AreEqual(Row(8, {9, 0}), Row(8, {9, 255}), OnePair(), WeighedBy(mask, negative, identity, inverted)));
    EXPECT_FALSE(AreEqual(Row(8, {200, 0}), Row(8, {200, 255}), OnePair(), WeighedBy(mask, negative)));
}

TEST(CompareDecodedData, AWeightMayBeAChannelOfThePictureItself)
{
    const SourcePointer left = Pixels(2, {9, 255, 0, 0});
    const SourcePointer right = Pixels(2, {9, 255, 255, 0});
    SoftMaskWeighting weighting = WeighedBy(left, right);
    weighting.left.channel.index = 1;
    weighting.right.channel.index = 1;
    EXPECT_TRUE(AreEqual(left, right, OnePair(), weighting));
    EXPECT_FALSE(AreEqual(left, right, OnePair()));
}

TEST(CompareDecodedData, PlainSamplesAreComparedAsNumbersUnderAWeighting)
{
    const SourcePointer full = Row(8, {255});
    EXPECT_TRUE(AreEqual(Row(8, {100}), Row(8, {102}), OnePair(), WeighedBy(full, full)));
    EXPECT_FALSE(AreEqual(Row(8, {100}), Row(8, {103}), OnePair(), WeighedBy(full, full)));
}

TEST(CompareDecodedData, AWeightingThatIsNotEngagedMeansNothing)
{
    SoftMaskWeighting weighting = WeighedBy(Row(8, {0}), Row(8, {0}));
    weighting.engaged = false;
    EXPECT_FALSE(AreEqual(Row(8, {1}), Row(8, {200}), OnePair(), weighting));
}

TEST(CompareDecodedData, ABufferWithFewerRowsOrColumnsDiffers)
{
    PicturePlan larger = MaskPlan(Samples(6, 7));
    larger.width = 3;
    PicturePlan narrow = MaskPlan(Samples(4, 7));
    PicturePlan low = MaskPlan(Samples(3, 7));
    low.width = 3;
    low.height = 1;
    for (const Pairs& pairs : {OnePair(), OnePair(identity, StartingAt(0.001))}) {
        EXPECT_FALSE(CompareOneWay(MakeSource(larger), MakeSource(narrow), pairs));
        EXPECT_FALSE(CompareOneWay(MakeSource(larger), MakeSource(low), pairs));
        EXPECT_TRUE(CompareOneWay(MakeSource(narrow), MakeSource(larger), pairs));
        EXPECT_TRUE(CompareOneWay(MakeSource(low), MakeSource(larger), pairs));
    }
}

TEST(CompareDecodedData, AMaskThatIsSmallerThanThePictureMakesADifference)
{
    const SourcePointer picture = Row(8, {1, 2});
    const SourcePointer other = Row(8, {1, 2});
    EXPECT_FALSE(AreEqual(picture, other, OnePair(), WeighedBy(Row(8, {255}), Row(8, {255, 255}))));
    EXPECT_TRUE(AreEqual(picture, other, OnePair(), WeighedBy(Row(8, {255, 255, 255}), Row(8, {255, 255}))));
}

TEST(CompareDecodedData, ChannelsThatABufferDoesNotHaveNeedTheSameSamplesThroughout)
{
    for (const std::size_t missing : {std::size_t{2}, std::size_t{1000000}, OrvColor::Unmapped}) {
        const Pairs pairs = {ChannelPair(ChannelAt(missing), ChannelAt(missing))};
        EXPECT_TRUE(AreEqual(Pixels(2, {1, 2, 3, 4}), Pixels(2, {1, 2, 3, 4}), pairs));
        EXPECT_FALSE(AreEqual(Pixels(2, {1, 2, 3, 4}), Pixels(2, {1, 2, 3, 5}), pairs));
        EXPECT_FALSE(AreEqual(Pixels(2, {1, 2, 3, 4}), Pixels(1, {1, 3}), pairs));
        EXPECT_FALSE(AreEqual(Pixels(2, {1, 2, 3, 4}), Pixels(2, {1, 2, 3, 4}),
                              {ChannelPair(ChannelAt(missing), ChannelAt(0))}));
        EXPECT_FALSE(AreEqual(Pixels(2, {1, 2, 3, 4}), Pixels(2, {1, 2, 3, 4}),
                              {ChannelPair(ChannelAt(missing), ChannelAt(missing)),
                               ChannelPair(ChannelAt(0), ChannelAt(0, inverted))}));
    }
}

TEST(CompareDecodedData, AWeightThatNoMaskHasNeedsTheSameSamplesThroughout)
{
    const auto weighed = [](const SourcePointer& left, const SourcePointer& right, std::size_t leftIndex,
                            std::size_t rightIndex) {
        SoftMaskWeighting weighting = WeighedBy(left, right);
        weighting.left.channel.index = leftIndex;
        weighting.right.channel.index = rightIndex;
        return weighting;
    };
    const auto mask = [](unsigned sample) { return Row(8, {sample}); };
    constexpr std::size_t none = OrvColor::Unmapped;
    EXPECT_TRUE(AreEqual(Row(8, {1}), Row(8, {1}), OnePair(), weighed(mask(0), mask(0), none, none)));
    EXPECT_FALSE(AreEqual(Row(8, {1}), Row(8, {2}), OnePair(), weighed(mask(0), mask(0), none, none)));
    EXPECT_FALSE(AreEqual(Row(8, {1}), Row(8, {1}), OnePair(), weighed(mask(0), mask(1), none, none)));
    EXPECT_FALSE(AreEqual(Row(8, {1}), Row(8, {1}), OnePair(), weighed(mask(0), mask(0), none, 0)));
}

TEST(CompareDecodedData, PlainSamplesAreNotDecoded)
{
    const std::uint64_t before = Comparators::workCounters.samplesDecoded;
    EXPECT_TRUE(AreEqual(Row(8, {1, 2, 3}), Row(8, {1, 2, 3}), OnePair()));
    EXPECT_EQ(Comparators::workCounters.samplesDecoded, before);
    EXPECT_TRUE(CompareOneWay(Row(8, {1, 2, 3}), Row(8, {254, 253, 252}), OnePair(identity, inverted)));
    EXPECT_EQ(Comparators::workCounters.samplesDecoded, before + 3);
}

TEST(CompareDecodedData, SourcesThatAreAlikeAreNotAskedForSamples)
{
    const auto source = std::make_shared<CountingSource>(PicturePlan());
    const Pairs plain = {ChannelPair(ChannelAt(0), ChannelAt(0)), ChannelPair(ChannelAt(1), ChannelAt(1))};
    EXPECT_TRUE(CompareOneWay(source, source, plain));
    EXPECT_TRUE(CompareOneWay(source, source, {plain[1]}));
    EXPECT_TRUE(CompareOneWay(source, source, plain, WeighedBy(source, source)));
    EXPECT_EQ(source->GetDecodes(), 0);
}

TEST(CompareDecodedData, OneChannelOfAPictureMayDifferFromAnother)
{
    const auto source = std::make_shared<CountingSource>(PicturePlan());
    EXPECT_FALSE(CompareOneWay(source, source, {ChannelPair(ChannelAt(0), ChannelAt(1))}));
    EXPECT_FALSE(CompareOneWay(source, source, {ChannelPair(ChannelAt(0), ChannelAt(0, inverted))}));
}

TEST(CompareDecodedData, AlikeSourcesUnderOtherWeightsAreLookedAt)
{
    const SourcePointer picture = Row(8, {200});
    EXPECT_FALSE(AreEqual(picture, picture, OnePair(), WeighedBy(Row(8, {255}), Row(8, {100}))));
    const SourcePointer mask = Row(8, {255});
    EXPECT_FALSE(AreEqual(picture, picture, OnePair(), WeighedBy(mask, mask, identity, inverted)));
}

namespace
{

/// A picture that its library keeps in a form that it can't decode.
class UndecodableSource : public CountingSource, public OrvImg::Detail::StoredSamples
{
public:
    UndecodableSource(const PicturePlan& givenPlan, int givenForm)
        : CountingSource(givenPlan), form(givenForm)
    {}

    bool IsUndecodable() const override { return true; }
    bool IsStoredLike(const StoredSamples& other) const override
    {
        return static_cast<const UndecodableSource&>(other).form == form;
    }

private:
    int form;
};

} // namespace

TEST(CompareDecodedData, APictureThatCannotBeDecodedDiffersFromAllThatIsNotStoredAlike)
{
    const PicturePlan blank = MaskPlan({0, 0, 0, 0});
    const auto picture = [&](int form) { return std::make_shared<UndecodableSource>(blank, form); };
    const auto one = picture(1);
    const auto same = picture(1);
    const SourcePointer mask = MakeSource(MaskPlan({0, 0, 0, 0}));
    EXPECT_TRUE(AreEqual(one, same, OnePair()));
    EXPECT_FALSE(AreEqual(one, picture(2), OnePair()));
    EXPECT_FALSE(AreEqual(one, MakeSource(blank), OnePair()));
    EXPECT_FALSE(AreEqual(one, MakeSource(blank), OnePair(identity, StartingAt(0.001))));
    EXPECT_FALSE(AreEqual(one, MakeSource(blank), OnePair(), WeighedBy(mask, mask)));
    EXPECT_TRUE(AreEqual(one, MakeSource(blank), {})) << "without a pair nothing is compared";
    EXPECT_EQ(one->GetDecodes() + same->GetDecodes(), 0);
}

TEST(CompareDecodedData, AlikeSourcesWithRangesThatAgreeNearlyAreNotDecodedIfAllChannelsArePaired)
{
    const auto one = std::make_shared<CountingSource>(PicturePlan());
    const ChannelPair first(ChannelAt(0), ChannelAt(0, {1e-7, 1.0}));
    const ChannelPair second(ChannelAt(1), ChannelAt(1));
    EXPECT_TRUE(CompareOneWay(one, one, {first, second}));
    EXPECT_EQ(one->GetDecodes(), 0);
    EXPECT_TRUE(CompareOneWay(one, one, {first}));
    EXPECT_EQ(one->GetDecodes(), 1);
}

TEST(CompareMaskSources, ComparesTheFirstChannelsUnderTheirOwnRanges)
{
    const auto compare = [](const PicturePlan& left, const PicturePlan& right) {
        Comparators::HeldBuffers buffers;
        return Comparators::CompareMaskSources(MakeSource(left), MakeSource(right), buffers);
    };
    PicturePlan negative = StencilPlan(2, 2, {0, 1, 1, 0});
    EXPECT_FALSE(compare(StencilPlan(), negative));
    negative.channels = {StencilChannel(inverted)};
    EXPECT_TRUE(compare(StencilPlan(), negative));
    EXPECT_TRUE(compare(negative, StencilPlan()));
    EXPECT_FALSE(compare(StencilPlan(), StencilPlan(2, 2, {1, 0, 0, 0})));
}

TEST(CompareMaskSources, ASourceThatTellsOfNoChannelHasTheRange01)
{
    const auto source = [](unsigned sample) {
        return std::make_shared<OrvImg::BufferedPictureSource>(
            MakeBuffer(1, 1, 1, 1, {sample}), OrvImg::DeviceN(), std::vector<OrvImg::ChannelInfo>(), nullptr,
            0.0, 0.0, nullptr);
    };
    Comparators::HeldBuffers buffers;
    EXPECT_TRUE(Comparators::CompareMaskSources(source(1), source(1), buffers));
    EXPECT_FALSE(Comparators::CompareMaskSources(source(1), source(0), buffers));
    EXPECT_TRUE(Comparators::CompareMaskSources(source(1), MakeSource(StencilPlan(1, 1, {1})), buffers));
}

} // namespace HarrowSupport::Testing
