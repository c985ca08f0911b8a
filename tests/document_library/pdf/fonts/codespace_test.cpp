#include "pdf/fonts/codespace.h"

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvPdf
{

inline void PrintTo(const Codespace::Match& match, std::ostream* out)
{
    *out << std::hex << match.value << " of " << match.bytes << (match.isValid ? "" : ", invalid");
}

inline bool operator==(const Codespace::Match& left, const Codespace::Match& right)
{
    return left.value == right.value && left.bytes == right.bytes && left.isValid == right.isValid;
}

namespace
{

using namespace std::string_view_literals;

Codespace MakeCodespace(const std::vector<Codespace::Range>& ranges)
{
    Codespace codespace;
    for (const Codespace::Range& range : ranges)
        EXPECT_TRUE(codespace.Add(range));
    codespace.Finish();
    return codespace;
}

constexpr bool valid = true;
constexpr bool invalid = false;

/// The codes of a Japanese encoding: one byte or two.
Codespace ShiftedCodespace()
{
    return MakeCodespace({{1, 0x00, 0x80}, {2, 0x8140, 0x9FFC}, {1, 0xA0, 0xDF}, {2, 0xE040, 0xFCFC}});
}

/// Codes of one, two and four bytes that begin alike.
Codespace ChineseCodespace()
{
    return MakeCodespace({{1, 0x00, 0x7F}, {4, 0x81308130, 0xFE39FE39}, {2, 0x8140, 0xFEFE}});
}

TEST(Codespace, OfTwoBytesTakesTwo)
{
    const Codespace codespace = MakeCodespace({{2, 0x0000, 0xFFFF}});
    EXPECT_EQ(codespace.Take("\x12\x34\x56"sv), (Codespace::Match{0x1234, 2, valid}));
    EXPECT_EQ(codespace.Take("\x00\x00"sv), (Codespace::Match{0, 2, valid}));
    EXPECT_EQ(codespace.Take("\xFF\xFF"sv), (Codespace::Match{0xFFFF, 2, valid}));
}

TEST(Codespace, OfFourBytesTakesFour)
{
    const Codespace codespace = MakeCodespace({{4, 0x00000000, 0xFFFFFFFF}});
    EXPECT_EQ(codespace.Take("\xFE\xDC\xBA\x98\x76"sv), (Codespace::Match{0xFEDCBA98, 4, valid}));
}

TEST(Codespace, TakesTheLengthThatTheFirstByteTells)
{
    const Codespace codespace = ShiftedCodespace();
    EXPECT_EQ(codespace.Take("\x41\x42"sv), (Codespace::Match{0x41, 1, valid}));
    EXPECT_EQ(codespace.Take("\x81\x40"sv), (Codespace::Match{0x8140, 2, valid}));
    EXPECT_EQ(codespace.Take("\xA0\x40"sv), (Codespace::Match{0xA0, 1, valid}));
    EXPECT_EQ(codespace.Take("\xDF\x40"sv), (Codespace::Match{0xDF, 1, valid}));
    EXPECT_EQ(codespace.Take("\xFC\xFC"sv), (Codespace::Match{0xFCFC, 2, valid}));
}

TEST(Codespace, ComparesEachByteForItself)
{
    const Codespace codespace = ShiftedCodespace();
    // As numbers, these lie between 8140 and 9FFC.
    EXPECT_EQ(codespace.Take("\x82\x3F"sv), (Codespace::Match{0x823F, 2, invalid}));
    EXPECT_EQ(codespace.Take("\x82\xFD"sv), (Codespace::Match{0x82FD, 2, invalid}));
}

TEST(Codespace, TakesTheShortestLengthWhereNothingBeginsAlike)
{
    EXPECT_EQ(ShiftedCodespace().Take("\xFD\x40"sv), (Codespace::Match{0xFD, 1, invalid}));
    const Codespace longer = MakeCodespace({{4, 0x10000000, 0x1FFFFFFF}, {3, 0x200000, 0x2FFFFF}});
    EXPECT_EQ(longer.Take("\x40\x41\x42\x43"sv), (Codespace::Match{0x404142, 3, invalid}));
}

TEST(Codespace, LooksAtFurtherBytesWhereSeveralRangesBeginAlike)
{
    const Codespace codespace = ChineseCodespace();
    EXPECT_EQ(codespace.Take("\x81\x30\x81\x30"sv), (Codespace::Match{0x81308130, 4, valid}));
    EXPECT_EQ(codespace.Take("\x81\x40\x81\x30"sv), (Codespace::Match{0x8140, 2, valid}));
    EXPECT_EQ(codespace.Take("\x41\x30\x81\x30"sv), (Codespace::Match{0x41, 1, valid}));
}

TEST(Codespace, TakesTheShortestOfThoseThatMatchAsFar)
{
    // The second byte suits neither, so both match in the first one.
    EXPECT_EQ(ChineseCodespace().Take("\x81\x20\x81\x30"sv), (Codespace::Match{0x8120, 2, invalid}));
}

TEST(Codespace, TakesTheOneThatMatchesFarthest)
{
    // Two bytes suit the range of four, one that of two.
    EXPECT_EQ(ChineseCodespace().Take("\x81\x30\x20\x30"sv), (Codespace::Match{0x81302030, 4, invalid}));
}

TEST(Codespace, TakesAShorterMatchBeforeALongerOne)
{
    // Ranges should not overlap, but where they do, the shorter code is complete first.
    const Codespace codespace = MakeCodespace({{2, 0x4100, 0x41FF}, {1, 0x40, 0x42}});
    EXPECT_EQ(codespace.Take("\x41\x41"sv), (Codespace::Match{0x41, 1, valid}));
}

TEST(Codespace, TakesWhatIsLeftOfAStringThatEndsInsideACode)
{
    EXPECT_EQ(MakeCodespace({{2, 0x0000, 0xFFFF}}).Take("\x12"sv), (Codespace::Match{0x12, 1, invalid}));
    EXPECT_EQ(ShiftedCodespace().Take("\x81"sv), (Codespace::Match{0x81, 1, invalid}));
    EXPECT_EQ(ChineseCodespace().Take("\x81\x30\x81"sv), (Codespace::Match{0x813081, 3, invalid}));
}

TEST(Codespace, RefusesRangesWithoutCodes)
{
    Codespace codespace;
    EXPECT_FALSE(codespace.Add({0, 0, 0}));
    EXPECT_FALSE(codespace.Add({5, 0, 0}));
    EXPECT_FALSE(codespace.Add({2, 0x0080, 0xFF7F}));
    EXPECT_FALSE(codespace.Add({1, 2, 1}));
    EXPECT_TRUE(codespace.Add({1, 2, 2}));
}

TEST(Codespace, BoundsTheNumberOfItsRanges)
{
    Codespace codespace;
    for (std::uint32_t i = 0; i < Codespace::maximalRanges; ++i)
        EXPECT_TRUE(codespace.Add({2, i << 8, i << 8 | 1}));
    EXPECT_FALSE(codespace.Add({3, 0, 1}));
    EXPECT_TRUE(codespace.Add({2, 0x0100, 0x0101})) << "one that is there already takes no room";
    EXPECT_EQ(codespace.GetRanges().size(), Codespace::maximalRanges);
}

TEST(Codespace, TellsWhetherAllCodesAreOfOneLength)
{
    EXPECT_EQ(MakeCodespace({{2, 0x0000, 0x00FF}, {2, 0x8000, 0xFFFF}}).GetUniformBytes(), 2u);
    EXPECT_EQ(ShiftedCodespace().GetUniformBytes(), 0u);
    EXPECT_EQ(Codespace().GetUniformBytes(), 0u);
}

} // namespace
} // namespace OrvPdf
