#include "comparators/indexing_comparison.h"

#include "comparators/indexed_data_comparison.h"
#include "comparators/indexed_source_expansion.h"
#include "support/document_makers.h"
#include "support/picture_plan.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

using Comparators::ChannelPair;
using Pairs = std::vector<ChannelPair>;

constexpr double decodeTolerance = 1.0 / 131072.0;

/// Takes a sample to the entry of its own number.
constexpr Range direct = {0.0, 1.0};

void ExpectImageReports(const PicturePlan& left, const PicturePlan& right,
                        const std::vector<ExpectedReport>& expected,
                        const Comparators::Options& options = AllOptions())
{
    ExpectReports<OrvDoc::ContentObject>(*ImageOf(left), *ImageOf(right), expected, options);
}

Comparators::Options WithoutExpansion()
{
    Comparators::Options options = AllOptions();
    options.expandIndexedImages = false;
    return options;
}

/// Two pixels by two rows of positions, in two separations.
PicturePlan Indexed(const Samples& samples, const TablePointer& table)
{
    PicturePlan plan;
    plan.samples = samples;
    plan.table = table;
    return plan;
}

const TablePointer fourColors = MakeTable(2, {10, 20, 30, 40, 50, 60, 70, 80}, direct);

/// The same colours, the last one first.
const TablePointer reversed = MakeTable(2, {70, 80, 50, 60, 30, 40, 10, 20}, direct);

PicturePlan OneChannel(const Samples& samples, const std::vector<unsigned char>& table,
                       const Range& range = direct, std::size_t bits = 8)
{
    PicturePlan plan = Indexed(samples, MakeTable(1, table, range));
    plan.channels = {ColorChannel("Spot")};
    plan.bits = bits;
    plan.width = samples.size();
    plan.height = 1;
    return plan;
}

bool AreEqual(const PicturePlan& left, const PicturePlan& right, const Pairs& pairs)
{
    const auto compare = [](const PicturePlan& one, const PicturePlan& other, const Pairs& list) {
        Comparators::HeldBuffers buffers;
        return Comparators::CompareIndexedData(MakeSource(one), MakeSource(other), list, buffers);
    };
    Pairs mirrored = pairs;
    for (ChannelPair& pair : mirrored)
        std::swap(pair.first, pair.second);
    const bool forwards = compare(left, right, pairs);
    EXPECT_EQ(compare(right, left, mirrored), forwards) << "the other way round";
    return forwards;
}

Pairs OnePair(const Range& left = identity, const Range& right = identity)
{
    return {ChannelPair(ChannelAt(0, left), ChannelAt(0, right))};
}

const ExpectedReport decodedDiffers = Difference("DecodedImageData");
const ExpectedReport indexedDiffers = Difference("IndexedImageData");
const ExpectedReport image = Difference("Image");

} // namespace

TEST(CompareIndexing, AnIndexedPictureIsEqualToItsExpansion)
{
    ExpectImageReports(Indexed({0, 1, 2, 3}, fourColors), {}, {});
    ExpectImageReports(Indexed({0, 1, 2, 2}, fourColors), {}, {decodedDiffers, image});
}

TEST(CompareIndexing, AnIndexedPictureDiffersFromItsExpansionIfThatIsNotAskedFor)
{
    ExpectImageReports(Indexed({0, 1, 2, 3}, fourColors), {}, {Difference("ImageIsIndexed", "1", "0"), image},
                       WithoutExpansion());
}

TEST(CompareIndexing, TwoIndexedPicturesNeedNoExpansion)
{
    ExpectImageReports(Indexed({0, 1, 2, 3}, fourColors), Indexed({0, 1, 2, 3}, fourColors), {},
                       WithoutExpansion());
}

TEST(CompareIndexing, TheRangeOfTheTableCountsForTheExpansion)
{
    const TablePointer backwards = MakeTable(2, {10, 20, 30, 40, 50, 60, 70, 80}, {1.0, 0.0});
    PicturePlan plan = Indexed({3, 2, 1, 0}, backwards);
    plan.bits = 2;
    ExpectImageReports(plan, {}, {});
}

TEST(CompareIndexing, TablesOfOtherChannelCountsDiffer)
{
    const ChannelMap same = Places({{"Spot", ChannelAt(0)}});
    PicturePlan left = Indexed({0, 1, 2, 3}, fourColors);
    left.mapping = same;
    PicturePlan right = Indexed({0, 1, 2, 3}, MakeTable(1, {10, 30, 50, 70}));
    right.channels = {ColorChannel("Spot")};
    ExpectImageReports(left, right, {Difference("ImageColorTableSize", "2", "1"), image});
}

TEST(CompareIndexing, AllIndicesCountUnderEqualTables)
{
    const PicturePlan left = Indexed({0, 1, 2, 3}, fourColors);
    const TablePointer copy = MakeTable(2, fourColors->GetData());
    for (std::size_t i = 0; i < 4; ++i) {
        PicturePlan right = Indexed({0, 1, 2, 3}, copy);
        ExpectImageReports(left, right, {});
        right.samples[i] ^= 1;
        ExpectImageReports(left, right, {decodedDiffers, image});
    }
}

TEST(CompareIndexing, IndicesOfOtherDepthsAreComparedUnderTheRangesOfTheirTables)
{
    // The same entry at another depth is another number.
    PicturePlan shallow = Indexed({0, 1, 2, 3}, fourColors);
    shallow.bits = 2;
    ExpectImageReports(Indexed({0, 1, 2, 3}, fourColors), shallow, {decodedDiffers, image});
    ExpectImageReports(Indexed({0, 85, 170, 255}, fourColors), shallow, {});
}

TEST(CompareIndexing, OnlyTheFirstSampleOfEachRowIsLookedAtUnderOtherTables)
{
    const PicturePlan left = Indexed({0, 1, 2, 3}, fourColors);
    ExpectImageReports(left, Indexed({3, 2, 1, 0}, reversed), {});
    ExpectImageReports(left, Indexed({3, 0, 1, 3}, reversed), {});
    ExpectImageReports(left, Indexed({2, 2, 1, 0}, reversed), {indexedDiffers, image});
    ExpectImageReports(left, Indexed({3, 2, 0, 0}, reversed), {indexedDiffers, image});
}

TEST(CompareIndexing, EqualTablesUnderAnotherListThanThePlainIdentityAreComparedByColor)
{
    const auto mapped = [](const Samples& samples, const ChannelMap& mapping) {
        PicturePlan plan = Indexed(samples, fourColors);
        plan.mapping = mapping;
        return plan;
    };
    const auto onlyFirstsCount = [&](const ChannelMap& left, const ChannelMap& right) {
        ExpectImageReports(mapped({0, 1, 2, 3}, left), mapped({0, 3, 2, 1}, right), {});
        ExpectImageReports(mapped({0, 1, 2, 3}, left), mapped({3, 1, 2, 3}, right), {indexedDiffers, image});
    };
    const ChannelMap one = Places({{"Spot", ChannelAt(1)}});
    onlyFirstsCount(one, one);
    const ChannelMap nearly = Places({{"Cyan", ChannelAt(0)}, {"Spot", ChannelAt(1, {1e-9, 1.0})}});
    onlyFirstsCount(Places({{"Cyan", ChannelAt(0)}, {"Spot", ChannelAt(1)}}), nearly);
    const ChannelMap twice = Places({{"Cyan", ChannelAt(0)}, {"Spot", ChannelAt(0)}});
    onlyFirstsCount(twice, twice);
}

TEST(CompareIndexing, ThePlainIdentityMayStandInAnyOrder)
{
    PicturePlan left = Indexed({0, 1, 2, 3}, fourColors);
    left.channels = {ColorChannel("Spot"), ColorChannel("Cyan")};
    PicturePlan right = left;
    right.samples[1] = 0;
    ExpectImageReports(left, right, {decodedDiffers, image});
}

TEST(CompareIndexing, WeightsCountForIndicesAndNotForColors)
{
    const PicturePlan hidden = MaskPlan({0, 0, 0, 0});
    ExpectImageReports(SoftMasked(Indexed({0, 1, 2, 3}, fourColors), hidden),
                       SoftMasked(Indexed({3, 2, 1, 0}, fourColors), hidden), {});
    ExpectImageReports(SoftMasked(Indexed({0, 1, 2, 3}, fourColors), hidden),
                       SoftMasked(Indexed({0, 1, 2, 3}, reversed), hidden), {indexedDiffers, image});
    ExpectImageReports(SoftMasked(Indexed({0, 1, 2, 3}, fourColors), hidden), SoftMasked({}, hidden), {});
    ExpectImageReports(SoftMasked(Indexed({3, 2, 1, 0}, fourColors), hidden), SoftMasked({}, hidden), {});
}

TEST(CompareIndexedData, ColorsMayBeLessThanTheDecodeToleranceApart)
{
    const PicturePlan plan = OneChannel({0}, {0});
    const double inside = std::nextafter(decodeTolerance, 0.0);
    EXPECT_TRUE(AreEqual(plan, plan, OnePair({0.0, 1.0}, {inside, 1.0})));
    EXPECT_FALSE(AreEqual(plan, plan, OnePair({0.0, 1.0}, {decodeTolerance, 1.0})));
}

TEST(CompareIndexedData, ColorsAreDecodedOn255AndLimitedTo0And1)
{
    EXPECT_TRUE(AreEqual(OneChannel({0}, {51}), OneChannel({0}, {204}), OnePair(identity, inverted)));
    EXPECT_TRUE(AreEqual(OneChannel({0}, {255}), OneChannel({0}, {0}), OnePair({0.0, 9.0}, {1.0, 0.0})));
    EXPECT_TRUE(AreEqual(OneChannel({0}, {255}), OneChannel({0}, {0}), OnePair({0.0, -9.0}, {0.0, 1.0})));
    EXPECT_FALSE(AreEqual(OneChannel({0}, {51}), OneChannel({0}, {52}), OnePair()));
}

TEST(CompareIndexedData, APositionIsRoundedToTheNearestOne)
{
    const std::vector<unsigned char> table = {0, 50, 100, 150};
    // 3 times 0.49 is 1.47, 3 times 0.5 is 1.5.
    EXPECT_TRUE(AreEqual(OneChannel({3}, table, {0.0, 0.49}), OneChannel({1}, table), OnePair()));
    EXPECT_TRUE(AreEqual(OneChannel({3}, table, {0.0, 0.5}), OneChannel({2}, table), OnePair()));
    EXPECT_TRUE(AreEqual(OneChannel({2}, table, {1.0, 0.0}, 2), OneChannel({1}, table), OnePair()));
}

TEST(CompareIndexedData, APositionIsLimitedToThoseOfItsDepth)
{
    const std::vector<unsigned char> table = {0, 50, 100, 150, 200};
    EXPECT_TRUE(AreEqual(OneChannel({3}, table, {0.0, 9.0}, 2), OneChannel({3}, table), OnePair()));
    for (const double below : {-9.0, -1e300, std::nan("")})
        EXPECT_TRUE(AreEqual(OneChannel({3}, table, {0.0, below}), OneChannel({0}, table), OnePair()));
}

TEST(CompareIndexedData, EachPairCounts)
{
    const PicturePlan left = Indexed({0, 0, 1, 0}, fourColors);
    PicturePlan right = Indexed({0, 0, 1, 0}, MakeTable(2, {10, 21, 30, 40}));
    const ChannelPair first(ChannelAt(0), ChannelAt(0));
    const ChannelPair second(ChannelAt(1), ChannelAt(1));
    EXPECT_TRUE(AreEqual(left, right, {first}));
    EXPECT_FALSE(AreEqual(left, right, {first, second}));
    EXPECT_TRUE(AreEqual(left, right, {}));
}

TEST(CompareIndexedData, ChannelsThatNoTableHasNeedTheSameColorThroughout)
{
    const PicturePlan left = Indexed({0, 0, 1, 0}, fourColors);
    for (const std::size_t missing : {std::size_t{2}, OrvColor::Unmapped}) {
        const Pairs pairs = {ChannelPair(ChannelAt(missing), ChannelAt(missing))};
        EXPECT_TRUE(AreEqual(left, Indexed({3, 0, 2, 0}, reversed), pairs));
        EXPECT_FALSE(AreEqual(left, Indexed({3, 0, 1, 0}, reversed), pairs));
        EXPECT_FALSE(AreEqual(left, left, {ChannelPair(ChannelAt(missing), ChannelAt(0))}));
    }
}

TEST(CompareIndexedData, WithoutRowsOrColumnsAllIsEqualAndASmallerBufferDiffers)
{
    const auto compare = [](const PicturePlan& left, const PicturePlan& right) {
        Comparators::HeldBuffers buffers;
        return Comparators::CompareIndexedData(MakeSource(left), MakeSource(right), OnePair(), buffers);
    };
    PicturePlan empty = Indexed({}, fourColors);
    empty.width = 0;
    const PicturePlan full = Indexed({0, 1, 2, 3}, reversed);
    EXPECT_TRUE(compare(empty, full));
    EXPECT_FALSE(compare(full, empty));
    empty.width = 2;
    empty.height = 0;
    EXPECT_TRUE(compare(empty, full));
    EXPECT_FALSE(compare(full, empty));
}

TEST(ExpandIndexedSource, KeepsAllButTheTable)
{
    const PicturePlan plan = Indexed({3, 0, 2, 1}, fourColors);
    Comparators::HeldBuffers buffers;
    const SourcePointer expanded = Comparators::ExpandIndexedSource(MakeSource(plan), buffers);
    EXPECT_EQ(expanded->GetColorTable(), nullptr);
    EXPECT_EQ(expanded->GetXDpi(), 72.0);
    ASSERT_EQ(expanded->GetChannelInfos().size(), 2u);
    EXPECT_EQ(expanded->GetChannelInfos()[1].GetName(), "Spot");
    const BufferPointer buffer = expanded->GetPictureBuffer();
    EXPECT_EQ(buffer->channels, 2u);
    EXPECT_EQ(buffer->bitsPerChannel, 8u);
    EXPECT_EQ(std::vector<int>(buffer->GetRowPtr(0), buffer->GetRowPtr(0) + 4),
              (std::vector<int>{70, 80, 10, 20}));
    EXPECT_EQ(std::vector<int>(buffer->GetRowPtr(1), buffer->GetRowPtr(1) + 4),
              (std::vector<int>{50, 60, 30, 40}));
}

} // namespace HarrowSupport::Testing
