#include "pdf/fonts/encodings.h"

#include "pdf/fonts/glyph_names.h"

#include <array>
#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{

using OrvPdf::BaseEncoding;
using OrvPdf::GetGlyphName;

constexpr std::array<BaseEncoding, 6> allEncodings = {BaseEncoding::Standard, BaseEncoding::MacRoman,
                                                      BaseEncoding::WinAnsi,  BaseEncoding::MacExpert,
                                                      BaseEncoding::Symbol,   BaseEncoding::ZapfDingbats};

std::size_t CountNames(BaseEncoding encoding)
{
    std::size_t count = 0;
    for (unsigned code = 0; code < 256; ++code)
        count += GetGlyphName(encoding, static_cast<std::uint8_t>(code)).empty() ? 0 : 1;
    return count;
}

/// One code point for each code from `first` on; an underscore for a code without a name.
std::u32string TextOfCodes(BaseEncoding encoding, unsigned first, unsigned last)
{
    std::u32string text;
    for (unsigned code = first; code <= last; ++code) {
        const auto name = GetGlyphName(encoding, static_cast<std::uint8_t>(code));
        text += name.empty() ? U"_" : OrvPdf::GetTextOfGlyphName(name);
    }
    return text;
}

std::u32string Ascii()
{
    std::u32string text;
    for (char32_t c = 0x20; c < 0x7F; ++c)
        text += c;
    return text;
}

TEST(Encodings, HaveAsManyNamesAsTheirTables)
{
    EXPECT_EQ(CountNames(BaseEncoding::Standard), 149u);
    EXPECT_EQ(CountNames(BaseEncoding::MacRoman), 208u);
    EXPECT_EQ(CountNames(BaseEncoding::WinAnsi), 224u);
    EXPECT_EQ(CountNames(BaseEncoding::MacExpert), 165u);
    EXPECT_EQ(CountNames(BaseEncoding::Symbol), 189u);
    EXPECT_EQ(CountNames(BaseEncoding::ZapfDingbats), 202u);
}

TEST(Encodings, HaveTheSpaceAsTheirFirstName)
{
    for (const BaseEncoding encoding : allEncodings) {
        for (unsigned code = 0; code < 0x20; ++code)
            EXPECT_EQ(GetGlyphName(encoding, static_cast<std::uint8_t>(code)), "");
        EXPECT_EQ(GetGlyphName(encoding, 0x20), "space");
    }
}

TEST(Encodings, HaveOnlyNamesThatStandForACharacter)
{
    for (const BaseEncoding encoding : allEncodings) {
        for (unsigned code = 0; code < 256; ++code) {
            const auto name = GetGlyphName(encoding, static_cast<std::uint8_t>(code));
            const bool isDingbat = encoding == BaseEncoding::ZapfDingbats;
            if (!name.empty()) {
                EXPECT_EQ(OrvPdf::GetTextOfGlyphName(name, isDingbat).size(), 1u) << name;
            }
        }
    }
}

TEST(Encodings, WinAnsiIsAsciiInItsLowerHalf)
{
    EXPECT_EQ(TextOfCodes(BaseEncoding::WinAnsi, 0x20, 0x7E), Ascii());
}

TEST(Encodings, MacRomanIsAsciiInItsLowerHalf)
{
    EXPECT_EQ(TextOfCodes(BaseEncoding::MacRoman, 0x20, 0x7E), Ascii());
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacRoman, 0x7F), "");
}

TEST(Encodings, StandardIsAsciiButForItsQuotes)
{
    std::u32string expected = Ascii();
    expected[0x27 - 0x20] = U'\u2019';
    expected[0x60 - 0x20] = U'\u2018';
    EXPECT_EQ(TextOfCodes(BaseEncoding::Standard, 0x20, 0x7E), expected);
    EXPECT_EQ(GetGlyphName(BaseEncoding::Standard, 0x27), "quoteright");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Standard, 0x60), "quoteleft");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Standard, 0xA9), "quotesingle");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Standard, 0xC1), "grave");
}

TEST(Encodings, StandardHasNoAccentedLetters)
{
    EXPECT_EQ(
        TextOfCodes(BaseEncoding::Standard, 0xE0, 0xFF),
        U"_\u00C6_\u00AA____\u0141\u00D8\u0152\u00BA_____\u00E6___\u0131__\u0142\u00F8\u0153\u00DF____");
}

TEST(Encodings, WinAnsiHasBulletsForUnusedCodes)
{
    EXPECT_EQ(
        TextOfCodes(BaseEncoding::WinAnsi, 0x7F, 0x9F),
        U"\u2022"
        U"\u20AC\u2022\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u2022\u017D\u2022"
        U"\u2022\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u2022\u017E\u0178");
}

TEST(Encodings, WinAnsiIsLatin1InItsUpperThird)
{
    std::u32string expected;
    for (char32_t c = 0xA0; c <= 0xFF; ++c)
        expected += c;
    expected[0] = U' ';
    expected[0xAD - 0xA0] = U'-';
    EXPECT_EQ(TextOfCodes(BaseEncoding::WinAnsi, 0xA0, 0xFF), expected);
    EXPECT_EQ(GetGlyphName(BaseEncoding::WinAnsi, 0xA0), "space");
    EXPECT_EQ(GetGlyphName(BaseEncoding::WinAnsi, 0xAD), "hyphen");
}

TEST(Encodings, MacRomanHasNoMathematicsInItsUpperHalf)
{
    EXPECT_EQ(
        TextOfCodes(BaseEncoding::MacRoman, 0x80, 0xFF),
        U"ÄÅÇÉÑÖÜáàâäãåçéèêëíìîïñóòôöõúùûü†°¢£§•¶ß®©™´¨_ÆØ_±__¥µ_____ªº_æø¿¡¬_ƒ__«»… ÀÃÕŒœ–—“”‘’÷_ÿŸ⁄¤‹›ﬁﬂ‡·"
        U"‚„‰ÂÊÁËÈÍÎÏÌÓÔ_ÒÚÛÙıˆ˜¯˘˙˚¸˝˛ˇ");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacRoman, 0xCA), "space");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacRoman, 0xDB), "currency");
}

TEST(Encodings, SymbolHasTheEuroWhereOthersHaveASpace)
{
    EXPECT_EQ(GetGlyphName(BaseEncoding::Symbol, 0xA0), "Euro");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Symbol, 0x80), "");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Symbol, 0xF0), "");
}

TEST(Encodings, SymbolHasGreekLettersOnTheLatinOnes)
{
    EXPECT_EQ(TextOfCodes(BaseEncoding::Symbol, 0x61, 0x7A),
              U"\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u00B5\u03BD\u03BF"
              U"\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Symbol, 0x27), "suchthat");
    EXPECT_EQ(GetGlyphName(BaseEncoding::Symbol, 0xFE), "bracerightbt");
}

TEST(Encodings, MacExpertHasItsOwnOrder)
{
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0x30), "zerooldstyle");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0x3D), "threequartersemdash");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0x56), "ff");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0x5A), "ffl");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0x8A), "Adieresissmall");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0xFB), "Ringsmall");
    EXPECT_EQ(GetGlyphName(BaseEncoding::MacExpert, 0xFC), "");
}

TEST(Encodings, ZapfDingbatsHasItsBracketsBelowTheUpperHalf)
{
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0x21), "a1");
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0x80), "a89");
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0x8D), "a96");
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0x8E), "");
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0xA1), "a101");
    EXPECT_EQ(GetGlyphName(BaseEncoding::ZapfDingbats, 0xFE), "a191");
}

} // namespace
