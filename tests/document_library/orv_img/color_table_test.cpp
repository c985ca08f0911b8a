#include <orv_img/color_table.h>

#include <stdexcept>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvImg
{
namespace
{

using testing::ElementsAre;

using Bytes = std::vector<unsigned char>;

ColorTable MakeTable(const Bytes& colors, std::size_t channels, std::array<double, 2> decode = {0.0, 1.0})
{
    return ColorTable(colors.data(), colors.size() / channels, channels, 8, decode);
}

/// Of one channel, in which each entry is its own position.
ColorTable CountingTable(std::size_t entries, std::array<double, 2> decode = {0.0, 1.0})
{
    Bytes colors;
    while (colors.size() < entries)
        colors.push_back(static_cast<unsigned char>(colors.size()));
    return MakeTable(colors, 1, decode);
}

Bytes Map(const ColorTable& table, const Bytes& row, std::size_t bits, std::size_t width)
{
    Bytes pixels(width * table.GetChannelCount());
    table.MapIndexedBuffer(pixels.data(), row.data(), bits, width, 0);
    return pixels;
}

TEST(ColorTableTest, CopiesItsData)
{
    Bytes colors = {1, 2, 3, 4};
    const ColorTable table = MakeTable(colors, 2, {0.25, 0.5});
    colors.assign(4, 0);
    EXPECT_THAT(table.GetData(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(table.GetChannelCount(), 2u);
    EXPECT_EQ(table.GetEntryCount(), 2u);
    EXPECT_THAT(table.GetDecode(), ElementsAre(0.25, 0.5));
}

TEST(ColorTableTest, RefusesOtherDepthsThanEight)
{
    const unsigned char color = 0;
    for (const std::size_t bits : {0, 1, 4, 7, 9, 16})
        EXPECT_THROW(ColorTable(&color, 1, 1, bits, {0.0, 1.0}), std::invalid_argument) << bits;
}

TEST(ColorTableTest, RefusesToBeEmpty)
{
    const unsigned char color = 0;
    EXPECT_THROW(ColorTable(&color, 0, 1, 8, {0.0, 1.0}), std::invalid_argument);
    EXPECT_THROW(ColorTable(&color, 1, 0, 8, {0.0, 1.0}), std::invalid_argument);
}

TEST(ColorTableTest, GivesTheColorAtAPosition)
{
    const ColorTable table = MakeTable({1, 2, 3, 4, 5, 6}, 3);
    Bytes color = {0, 0, 0, 99};
    table.GetColor(1, 8, color.data());
    EXPECT_THAT(color, ElementsAre(4, 5, 6, 99));
}

TEST(ColorTableTest, GivesItsLastColorBehindTheEnd)
{
    const ColorTable table = MakeTable({1, 2, 3, 4, 5, 6}, 3);
    Bytes color(3);
    table.GetColor(2, 8, color.data());
    EXPECT_THAT(color, ElementsAre(4, 5, 6));
    table.GetColor(~std::size_t{0}, 8, color.data());
    EXPECT_THAT(color, ElementsAre(4, 5, 6));
}

TEST(ColorTableTest, IgnoresItsDecodeRangeForAPosition)
{
    const ColorTable table = CountingTable(4, {1.0, 0.0});
    Bytes color(1);
    table.GetColor(1, 2, color.data());
    EXPECT_THAT(color, ElementsAre(1));
}

TEST(ColorTableTest, ExpandsEveryDepth)
{
    const ColorTable table = MakeTable({10, 11, 20, 21, 30, 31, 40, 41}, 2);
    EXPECT_THAT(Map(table, {0b01000000}, 1, 2), ElementsAre(10, 11, 20, 21));
    EXPECT_THAT(Map(table, {0b11000110}, 2, 4), ElementsAre(40, 41, 10, 11, 20, 21, 30, 31));
    EXPECT_THAT(Map(table, {0x21, 0x30}, 4, 3), ElementsAre(30, 31, 20, 21, 40, 41));
    EXPECT_THAT(Map(table, {3, 0}, 8, 2), ElementsAre(40, 41, 10, 11));
    EXPECT_THAT(Map(table, {0, 2, 0, 1}, 16, 2), ElementsAre(30, 31, 20, 21));
}

TEST(ColorTableTest, ExpandsALongRowLikeAShortOne)
{
    const ColorTable table = CountingTable(256, {0.1, 0.6});
    Bytes row;
    for (int times = 0; times < 3; ++times) {
        for (int sample = 255; sample >= 0; --sample)
            row.push_back(static_cast<unsigned char>(sample));
    }
    const Bytes whole = Map(table, row, 8, row.size());
    for (std::size_t column = 0; column < row.size(); ++column)
        EXPECT_THAT(Map(table, {row[column]}, 8, 1), ElementsAre(whole[column])) << column;
}

TEST(ColorTableTest, LeavesAGapBehindEachPixel)
{
    const ColorTable table = MakeTable({10, 11, 20, 21}, 2);
    const Bytes row = {0b10100000};
    Bytes pixels(12, 99);
    table.MapIndexedBuffer(pixels.data(), row.data(), 1, 3, 2);
    EXPECT_THAT(pixels, ElementsAre(20, 21, 99, 99, 10, 11, 99, 99, 20, 21, 99, 99));
}

TEST(ColorTableTest, TurnsPositionsRoundUnderAnInvertedRange)
{
    EXPECT_THAT(Map(CountingTable(4, {1.0, 0.0}), {0b00011011}, 2, 4), ElementsAre(3, 2, 1, 0));
    EXPECT_THAT(Map(CountingTable(256, {1.0, 0.0}), {0, 1, 255}, 8, 3), ElementsAre(255, 254, 0));
}

TEST(ColorTableTest, RoundsToTheNearestPosition)
{
    // From 1.5 to 9: 1.5, 2, 2.5 and so on.
    EXPECT_THAT(Map(CountingTable(16, {0.1, 0.6}), {0x01, 0x23, 0xEF}, 4, 6), ElementsAre(2, 2, 3, 3, 9, 9));
    const ColorTable table = CountingTable(256, {0.1, 0.6});
    for (std::size_t sample = 0; sample < 256; ++sample) {
        const double position = 25.5 + 0.5 * static_cast<double>(sample);
        EXPECT_NEAR(static_cast<double>(table.GetPosition(sample, 8)), position, 0.5 + 1e-9) << sample;
    }
}

TEST(ColorTableTest, RoundsHalvesUp)
{
    EXPECT_EQ(CountingTable(2, {0.5, 0.5}).GetPosition(0, 1), 1u);
    EXPECT_EQ(CountingTable(2, {0.5 - 1e-9, 0.5}).GetPosition(0, 1), 0u);
}

TEST(ColorTableTest, KeepsPositionsInTheRangeOfTheSamples)
{
    const ColorTable table = CountingTable(256, {-1.0, 2.0});
    EXPECT_EQ(table.GetPosition(0, 8), 0u);
    EXPECT_EQ(table.GetPosition(255, 8), 255u);
    EXPECT_EQ(table.GetPosition(0, 2), 0u);
    EXPECT_EQ(table.GetPosition(3, 2), 3u);
}

TEST(ColorTableTest, EqualsOneWithTheSameColorsAndRange)
{
    EXPECT_TRUE(MakeTable({1, 2, 3, 4}, 2) == MakeTable({1, 2, 3, 4}, 2));
    EXPECT_FALSE(MakeTable({1, 2, 3, 4}, 2) != MakeTable({1, 2, 3, 4}, 2));
}

TEST(ColorTableTest, DiffersInAColorItsFormOrItsRange)
{
    const ColorTable table = MakeTable({1, 2, 3, 4}, 2);
    for (const ColorTable& other :
         {MakeTable({1, 2, 3, 5}, 2), MakeTable({1, 2, 3, 4}, 4), MakeTable({1, 2, 3, 4, 3, 4}, 2),
          MakeTable({1, 2, 3, 4}, 2, {0.0, 0.5}), MakeTable({1, 2, 3, 4}, 2, {1.0, 0.0})}) {
        EXPECT_FALSE(table == other);
        EXPECT_FALSE(other == table);
        EXPECT_TRUE(table != other);
    }
}

TEST(ColorTableTest, ForgivesTheRoundingOfItsRangeOnTheWayThroughAFile)
{
    const double there = 0.1 * 255.0;
    EXPECT_TRUE(MakeTable({1, 2}, 2, {0.1, 0.6}) ==
                MakeTable({1, 2}, 2, {there / 255.0, 0.6 * 255.0 / 255.0}));
    EXPECT_TRUE(MakeTable({1, 2}, 2, {0.1, 0.6}) == MakeTable({1, 2}, 2, {0.1 + 9e-13, 0.6 - 9e-13}));
    EXPECT_FALSE(MakeTable({1, 2}, 2, {0.1, 0.6}) == MakeTable({1, 2}, 2, {0.1 + 2e-12, 0.6}));
    EXPECT_FALSE(MakeTable({1, 2}, 2, {0.1, 0.6}) == MakeTable({1, 2}, 2, {0.1, 0.6 - 2e-12}));
}

} // namespace
} // namespace OrvImg
