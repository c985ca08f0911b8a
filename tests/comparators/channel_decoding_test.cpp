#include "comparators/channel_decoding.h"

#include "comparators/sample_reading.h"
#include "support/picture_plan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace HarrowSupport::Testing
{

namespace
{

/// The number of a sample, restated.
double NumberOf(unsigned sample, std::size_t bits, const Range& range)
{
    const double highest = std::pow(2.0, static_cast<double>(bits)) - 1.0;
    double number = sample / highest;
    number = range[0] + (range[1] - range[0]) * number;
    if (number < 0.0)
        return 0.0;
    return number > 1.0 ? 1.0 : number;
}

bool AreSameBits(double left, double right)
{
    return std::memcmp(&left, &right, sizeof left) == 0 || (std::isnan(left) && std::isnan(right));
}

std::vector<Range> Ranges()
{
    const double infinity = std::numeric_limits<double>::infinity();
    return {identity,        inverted,        {0.1, 0.6},       {0.6, 0.1},         {1.0 / 3.0, 2.0 / 7.0},
            {-3.0, 4.0},     {0.25, 0.25},    {0.0, 1e-300},    {-1e300, 1e300},    {-1e308, 1e308},
            {0.0, infinity}, {infinity, 0.0}, {-infinity, 1.0}, {std::nan(""), 1.0}};
}

} // namespace

TEST(ReadSample, TakesTheHighestBitsOfAByteFirst)
{
    const unsigned char row[] = {0b10110100, 0b01100011};
    const auto all = [&row](std::size_t bits) {
        Samples samples;
        for (std::size_t i = 0; i < 16 / bits; ++i)
            samples.push_back(static_cast<unsigned>(Comparators::ReadSample(row, i, bits)));
        return samples;
    };
    EXPECT_EQ(all(1), (Samples{1, 0, 1, 1, 0, 1, 0, 0, 0, 1, 1, 0, 0, 0, 1, 1}));
    EXPECT_EQ(all(2), (Samples{2, 3, 1, 0, 1, 2, 0, 3}));
    EXPECT_EQ(all(4), (Samples{11, 4, 6, 3}));
    EXPECT_EQ(all(8), (Samples{180, 99}));
    EXPECT_EQ(all(16), (Samples{180 * 256 + 99}));
}

TEST(ReadSample, Gives0AtOtherDepths)
{
    const unsigned char row[] = {255, 255, 255, 255};
    for (const std::size_t bits : {0, 3, 5, 7, 12, 24, 32})
        EXPECT_EQ(Comparators::ReadSample(row, 0, bits), 0u) << bits;
}

TEST(HighestSample, IsTwoToThePowerOfTheDepthMinus1)
{
    EXPECT_EQ(Comparators::HighestSample(1), 1.0);
    EXPECT_EQ(Comparators::HighestSample(2), 3.0);
    EXPECT_EQ(Comparators::HighestSample(4), 15.0);
    EXPECT_EQ(Comparators::HighestSample(8), 255.0);
    EXPECT_EQ(Comparators::HighestSample(16), 65535.0);
    EXPECT_EQ(Comparators::HighestSample(0), 0.0);
    EXPECT_GT(Comparators::HighestSample(std::numeric_limits<std::size_t>::max()), 1e300);
}

/// All samples of a depth twice over: the first time one by one, the second time from the table. Each number
/// is that of the plain arithmetic to the last bit.
TEST(DecodedChannel, GivesTheNumberOfEachSampleWithAndWithoutATable)
{
    for (const std::size_t bits : {1, 2, 4, 8, 16}) {
        const std::size_t count = std::size_t{1} << bits;
        Samples samples;
        for (std::size_t i = 0; i < 2 * count; ++i) {
            samples.push_back(12345u & static_cast<unsigned>(count - 1)); // of another channel
            samples.push_back(static_cast<unsigned>(i % count));
        }
        const BufferPointer buffer = MakeBuffer(2 * count, 1, 2, bits, samples);
        for (const Range& range : Ranges()) {
            Comparators::DecodeTables tables;
            const Comparators::DecodedChannel channel(*buffer, ChannelAt(1, range), tables);
            std::vector<double> numbers(2 * count);
            channel.Decode(channel.Find(0, 0, count), numbers.data());
            channel.Decode(channel.Find(0, count, count), numbers.data() + count);
            for (std::size_t i = 0; i < numbers.size(); ++i) {
                ASSERT_TRUE(AreSameBits(numbers[i], NumberOf(static_cast<unsigned>(i % count), bits, range)))
                    << "sample " << i << " of " << bits << " bits in " << range[0] << " to " << range[1];
            }
        }
    }
}

TEST(DecodedChannel, StartsAtAnyRowAndColumn)
{
    const BufferPointer buffer = MakeBuffer(4, 2, 1, 4, {0, 1, 2, 3, 4, 5, 6, 15});
    Comparators::DecodeTables tables;
    const Comparators::DecodedChannel channel(*buffer, ChannelAt(0), tables);
    double numbers[2] = {-1.0, -1.0};
    channel.Decode(channel.Find(1, 2, 2), numbers);
    EXPECT_EQ(numbers[0], 6.0 / 15.0);
    EXPECT_EQ(numbers[1], 1.0);
}

TEST(DecodeTable, IsMadeOnceAsManySamplesWereDecodedOneByOne)
{
    Comparators::DecodeTable table(8, identity);
    EXPECT_EQ(table.Prepare(200), nullptr);
    EXPECT_EQ(table.Prepare(56), nullptr);
    const double* const values = table.Prepare(1);
    ASSERT_NE(values, nullptr);
    EXPECT_EQ(values[51], 0.2);
    EXPECT_EQ(table.Prepare(1), values);
}

TEST(DecodeTable, IsNeverMadeForADepthThatSamplesCannotHave)
{
    Comparators::DecodeTable table(32, identity);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(table.Prepare(std::size_t{1} << 40), nullptr);
}

TEST(DecodeTables, ChannelsOfOneDepthAndRangeShareATable)
{
    Comparators::DecodeTables tables;
    Comparators::DecodeTable& table = tables.Get(8, inverted);
    EXPECT_EQ(&tables.Get(8, inverted), &table);
    EXPECT_NE(&tables.Get(8, identity), &table);
    EXPECT_NE(&tables.Get(16, inverted), &table);
}

} // namespace HarrowSupport::Testing
