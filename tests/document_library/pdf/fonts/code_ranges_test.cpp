#include "pdf/fonts/code_ranges.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::CodeRange;
using OrvPdf::CodeRanges;

constexpr std::uint64_t seed = 20240611;

CodeRanges Ranges(const std::vector<CodeRange>& added)
{
    CodeRanges ranges;
    for (const CodeRange& range : added)
        ranges.Add(range);
    ranges.Finish();
    return ranges;
}

std::optional<std::uint32_t> ValueOf(const CodeRanges& ranges, std::uint32_t code)
{
    const CodeRange* const range = ranges.Find(code);
    return range ? std::optional<std::uint32_t>(range->ValueOf(code)) : std::nullopt;
}

TEST(CodeRanges, HaveNothingAtFirst)
{
    const CodeRanges ranges = Ranges({});
    EXPECT_TRUE(ranges.IsEmpty());
    EXPECT_EQ(ranges.Find(0), nullptr);
    EXPECT_EQ(ranges.Find(0xFFFFFFFF), nullptr);
}

TEST(CodeRanges, HoldBothTheirEnds)
{
    const CodeRanges ranges = Ranges({{10, 20, 100, 0}});
    EXPECT_EQ(ValueOf(ranges, 9), std::nullopt);
    EXPECT_EQ(ValueOf(ranges, 10), 100u);
    EXPECT_EQ(ValueOf(ranges, 20), 110u);
    EXPECT_EQ(ValueOf(ranges, 21), std::nullopt);
}

TEST(CodeRanges, AreFoundInWhateverOrderTheyCome)
{
    const CodeRanges ranges = Ranges({{50, 59, 500, 0}, {10, 19, 100, 0}, {30, 39, 300, 0}});
    EXPECT_EQ(ValueOf(ranges, 15), 105u);
    EXPECT_EQ(ValueOf(ranges, 30), 300u);
    EXPECT_EQ(ValueOf(ranges, 59), 509u);
    EXPECT_EQ(ValueOf(ranges, 25), std::nullopt);
    EXPECT_EQ(ValueOf(ranges, 60), std::nullopt);
}

TEST(CodeRanges, GoToTheEndOfTheCodes)
{
    const CodeRanges ranges = Ranges({{0xFFFFFFFE, 0xFFFFFFFF, 7, 0}, {0, 0xFFFFFFFF, 1, 1}});
    EXPECT_EQ(ValueOf(ranges, 0), 1u);
    EXPECT_EQ(ranges.GetAll().size(), 1u);
}

TEST(CodeRanges, ThatComeLaterWin)
{
    const CodeRanges ranges = Ranges({{10, 30, 100, 0}, {15, 20, 500, 0}});
    EXPECT_EQ(ValueOf(ranges, 14), 104u);
    EXPECT_EQ(ValueOf(ranges, 15), 500u);
    EXPECT_EQ(ValueOf(ranges, 20), 505u);
    EXPECT_EQ(ValueOf(ranges, 21), 111u);
    EXPECT_EQ(ranges.GetAll().size(), 3u);
}

TEST(CodeRanges, ThatComeLaterCoverEarlierOnes)
{
    const CodeRanges ranges = Ranges({{15, 20, 500, 0}, {10, 30, 100, 0}});
    EXPECT_EQ(ValueOf(ranges, 16), 106u);
    EXPECT_EQ(ranges.GetAll().size(), 1u);
}

TEST(CodeRanges, OfOneCodeTwiceHaveTheLaterValue)
{
    EXPECT_EQ(ValueOf(Ranges({{5, 5, 1, 0}, {5, 5, 2, 0}}), 5), 2u);
    EXPECT_EQ(ValueOf(Ranges({{5, 5, 2, 0}, {5, 5, 1, 0}}), 5), 1u);
}

TEST(CodeRanges, ThatGoOnAlikeAreJoined)
{
    EXPECT_EQ(Ranges({{0, 255, 0, 0}, {256, 511, 256, 0}, {512, 767, 512, 0}}).GetAll().size(), 1u);
    EXPECT_EQ(Ranges({{256, 511, 256, 0}, {0, 255, 0, 0}}).GetAll().size(), 1u);
}

TEST(CodeRanges, ThatGoOnOtherwiseStayApart)
{
    EXPECT_EQ(Ranges({{0, 255, 0, 0}, {256, 511, 257, 0}}).GetAll().size(), 2u);
    EXPECT_EQ(Ranges({{0, 255, 0, 0}, {257, 511, 257, 0}}).GetAll().size(), 2u);
    EXPECT_EQ(Ranges({{0, 255, 0, 0}, {256, 511, 256, 1}}).GetAll().size(), 2u);
}

TEST(CodeRanges, AreAtMostTwiceAsManyAfterwards)
{
    CodeRanges ranges;
    for (std::uint32_t i = 0; i < 1000; ++i)
        ranges.Add({i, 3000 - i, i * 10000, 0});
    ranges.Finish();
    EXPECT_LE(ranges.GetAll().size(), 2000u);
    EXPECT_EQ(ValueOf(ranges, 999), 9990000u);
    EXPECT_EQ(ValueOf(ranges, 2500), 500u * 10000u + 2000u);
}

TEST(CodeRanges, GiveWhatALookFromTheEndGives)
{
    std::mt19937_64 random(seed);
    for (int round = 0; round < 300; ++round) {
        std::vector<CodeRange> added;
        for (std::size_t count = random() % 20; count != 0; --count) {
            const auto low = static_cast<std::uint32_t>(random() % 60);
            added.push_back({low, low + static_cast<std::uint32_t>(random() % 12),
                             static_cast<std::uint32_t>(random() % 5),
                             static_cast<std::uint32_t>(random() % 2)});
        }
        const CodeRanges ranges = Ranges(added);
        for (std::uint32_t code = 0; code < 80; ++code) {
            const CodeRange* last = nullptr;
            for (const CodeRange& range : added) {
                if (range.low <= code && code <= range.high)
                    last = &range;
            }
            const CodeRange* const found = ranges.Find(code);
            ASSERT_EQ(found != nullptr, last != nullptr) << "round " << round << " of seed " << seed;
            if (last) {
                EXPECT_EQ(found->ValueOf(code), last->ValueOf(code)) << "round " << round;
                EXPECT_EQ(found->group, last->group) << "round " << round;
            }
        }
    }
}

} // namespace
