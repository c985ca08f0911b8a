#include "pdf/fonts/glyph_names.h"

#include "pdf/fonts/glyph_list.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::GetGlyphNameOfCodePoint;
using OrvPdf::GetTextOfGlyphName;

TEST(GlyphNames, OfTheListStandForTheirCodePoint)
{
    EXPECT_EQ(GetTextOfGlyphName("A"), U"A");
    EXPECT_EQ(GetTextOfGlyphName("Euro"), U"\u20AC");
    EXPECT_EQ(GetTextOfGlyphName("zukatakana"), U"\u30BA");
    EXPECT_EQ(GetTextOfGlyphName("Lcommaaccent"), U"\u013B");
}

TEST(GlyphNames, OfTheListMayStandForSeveralCodePoints)
{
    EXPECT_EQ(GetTextOfGlyphName("dalethiriq"), U"\u05D3\u05B4");
}

TEST(GlyphNames, AreReadWithTheirCase)
{
    EXPECT_EQ(GetTextOfGlyphName("aacute"), U"\u00E1");
    EXPECT_EQ(GetTextOfGlyphName("Aacute"), U"\u00C1");
    EXPECT_EQ(GetTextOfGlyphName("AACUTE"), U"");
}

TEST(GlyphNames, MayGiveUtf16Units)
{
    EXPECT_EQ(GetTextOfGlyphName("uni013B"), U"\u013B");
    EXPECT_EQ(GetTextOfGlyphName("uni20AC0308"), U"\u20AC\u0308");
}

TEST(GlyphNames, WithUnitsNeedGroupsOfFourCapitalDigits)
{
    EXPECT_EQ(GetTextOfGlyphName("uni20ac"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uni20A"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uni20AC0"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uni20ACG000"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uni"), U"");
}

TEST(GlyphNames, WithUnitsHaveNoSurrogates)
{
    EXPECT_EQ(GetTextOfGlyphName("uniD801DC0C"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uni0041D800"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uniD7FFE000"), U"\uD7FF\uE000");
}

TEST(GlyphNames, MayGiveACodePointOfFourToSixDigits)
{
    EXPECT_EQ(GetTextOfGlyphName("u013B"), U"\u013B");
    EXPECT_EQ(GetTextOfGlyphName("u1040C"), U"\U0001040C");
    EXPECT_EQ(GetTextOfGlyphName("u10FFFF"), U"\U0010FFFF");
    EXPECT_EQ(GetTextOfGlyphName("u110000"), U"");
    EXPECT_EQ(GetTextOfGlyphName("uD800"), U"");
    EXPECT_EQ(GetTextOfGlyphName("u041"), U"");
    EXPECT_EQ(GetTextOfGlyphName("u0000041"), U"");
    EXPECT_EQ(GetTextOfGlyphName("u1040c"), U"");
}

TEST(GlyphNames, OfLigaturesAreTheTextsOfTheirParts)
{
    EXPECT_EQ(GetTextOfGlyphName("f_f_i"), U"ffi");
    EXPECT_EQ(GetTextOfGlyphName("Lcommaaccent_uni20AC0308_u1040C.alternate"),
              U"\u013B\u20AC\u0308\U0001040C");
}

TEST(GlyphNames, LeaveOutPartsThatSayNothing)
{
    EXPECT_EQ(GetTextOfGlyphName("foo"), U"");
    EXPECT_EQ(GetTextOfGlyphName("f_foo_i"), U"fi");
    EXPECT_EQ(GetTextOfGlyphName("_"), U"");
    EXPECT_EQ(GetTextOfGlyphName("__f__"), U"f");
    EXPECT_EQ(GetTextOfGlyphName(""), U"");
}

TEST(GlyphNames, LeaveOutWhatFollowsAFullStop)
{
    EXPECT_EQ(GetTextOfGlyphName("A.swash"), U"A");
    EXPECT_EQ(GetTextOfGlyphName("A.b_c"), U"A");
    EXPECT_EQ(GetTextOfGlyphName("A."), U"A");
    EXPECT_EQ(GetTextOfGlyphName(".notdef"), U"");
    EXPECT_EQ(GetTextOfGlyphName(".A"), U"");
}

TEST(GlyphNames, OfDingbatsCountForDingbatsOnly)
{
    EXPECT_EQ(GetTextOfGlyphName("a1", true), U"\u2701");
    EXPECT_EQ(GetTextOfGlyphName("a205", true), U"\u276E");
    EXPECT_EQ(GetTextOfGlyphName("a1", false), U"");
    EXPECT_EQ(GetTextOfGlyphName("space", true), U" ");
}

TEST(GlyphNames, AreFoundByTheirCodePoint)
{
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'A'), "A");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U' '), "space");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u20AC'), "Euro");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\uFB01'), "fi");
}

TEST(GlyphNames, FoundAreThoseForNewFonts)
{
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u2126'), "Omega");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u00B5'), "mu");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u00AF'), "macron");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u00B7'), "periodcentered");
}

TEST(GlyphNames, FoundAreTheShortestOtherwise)
{
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u0410'), "Acyrillic");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u0122'), "Gcedilla");
}

TEST(GlyphNames, OfUnnamedCodePointsAreEmpty)
{
    EXPECT_EQ(GetGlyphNameOfCodePoint(0), "");
    EXPECT_EQ(GetGlyphNameOfCodePoint(U'\u4E00'), "");
    EXPECT_EQ(GetGlyphNameOfCodePoint(0x10FFFF), "");
}

TEST(GlyphNames, FoundStandForTheCodePoint)
{
    std::size_t named = 0;
    for (char32_t codePoint = 0; codePoint <= 0x10FFFF; ++codePoint) {
        const auto name = GetGlyphNameOfCodePoint(codePoint);
        if (name.empty())
            continue;
        ++named;
        ASSERT_EQ(GetTextOfGlyphName(name), std::u32string(1, codePoint)) << name;
    }
    EXPECT_EQ(named, 3680u);
}

TEST(GlyphNames, OfAllCodePointsOfTheListAreFound)
{
    OrvPdf::GlyphList::GetAdobe().Visit([](const OrvPdf::GlyphList::Entry& entry) {
        const std::u32string text = GetTextOfGlyphName(entry.name);
        if (text.size() == 1) {
            EXPECT_NE(GetGlyphNameOfCodePoint(text[0]), "") << entry.name;
        }
    });
}

} // namespace
