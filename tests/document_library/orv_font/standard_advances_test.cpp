#include "orv_font/standard_advances.h"

#include <string>

#include <gtest/gtest.h>

#include "orv_font/library_fonts.h"

namespace OrvFont::Detail
{
namespace
{

double AdvanceOf(const std::string& font, std::string_view glyph, double otherwise = -1.0)
{
    return GetStandardAdvance(FindFontKind(font), glyph, otherwise);
}

TEST(StandardAdvances, OfSymbolAreItsOwn)
{
    EXPECT_EQ(AdvanceOf("Symbol", "space"), 250.0);
    EXPECT_EQ(AdvanceOf("Symbol", "alpha"), 631.0);
    EXPECT_EQ(AdvanceOf("SymbolMT", "Sigma"), 592.0);
    EXPECT_EQ(AdvanceOf("Symbol", "arrowboth"), 1042.0);
    EXPECT_EQ(AdvanceOf("Symbol", "fraction"), 167.0);
    EXPECT_EQ(AdvanceOf("Symbol", "parenlefttp"), 384.0);
    EXPECT_EQ(AdvanceOf("Symbol", "parenrighttp"), 384.0);
}

TEST(StandardAdvances, OfDingbatsAreTheirOwn)
{
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "space"), 278.0);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "a1"), 974.0);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "a19"), 755.0);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "a20"), 846.0);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "a82"), 138.0);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "a163"), 1016.0);
}

TEST(StandardAdvances, LeaveWhatTheFontDoesNotHave)
{
    EXPECT_EQ(AdvanceOf("Symbol", "a1", 12.5), 12.5);
    EXPECT_EQ(AdvanceOf("ZapfDingbats", "alpha", 12.5), 12.5);
    EXPECT_EQ(AdvanceOf("Symbol", "", 12.5), 12.5);
}

TEST(StandardAdvances, OfTextFontsAreWholeNumbers)
{
    EXPECT_EQ(AdvanceOf("Times-Roman", "A", 722.17), 722.0);
    EXPECT_EQ(AdvanceOf("Helvetica", "A", 666.99), 667.0);
    EXPECT_EQ(AdvanceOf("Courier", "periodcentered", 600.1), 600.0);
}

TEST(StandardAdvances, OfTextFontsDifferFromTheFontThatStandsInForAFewGlyphs)
{
    EXPECT_EQ(AdvanceOf("Helvetica", "mu"), 556.0);
    EXPECT_EQ(AdvanceOf("Helvetica-Bold", "mu"), 611.0);
    EXPECT_EQ(AdvanceOf("Helvetica-Oblique", "mu"), 556.0);
    EXPECT_EQ(AdvanceOf("Times-Roman", "plusminus"), 564.0);
    EXPECT_EQ(AdvanceOf("Times-Bold", "plusminus"), 570.0);
    EXPECT_EQ(AdvanceOf("Times-Italic", "plusminus"), 675.0);
    EXPECT_EQ(AdvanceOf("Times-BoldItalic", "mu"), 576.0);
    EXPECT_EQ(AdvanceOf("Times-Italic", "periodcentered"), 250.0);
}

TEST(StandardAdvances, OfTheFontThatStandsInAreWithinHalfAThousandthForLetters)
{
    struct
    {
        const char* font;
        const char* glyph;
        char32_t codePoint;
        double advance;
    } const letters[] = {
        {"Helvetica", "A", 'A', 667},
        {"Helvetica", "m", 'm', 833},
        {"Helvetica-Bold", "at", '@', 975},
        {"Helvetica-BoldOblique", "Q", 'Q', 778},
        {"Times-Roman", "W", 'W', 944},
        {"Times-Bold", "ampersand", '&', 833},
        {"Times-Italic", "Eacute", 0xC9, 611},
        {"Times-BoldItalic", "germandbls", 0xDF, 500},
        {"Courier", "W", 'W', 600},
        {"Courier-BoldOblique", "period", '.', 600},
    };
    for (const auto& letter : letters) {
        const auto program = ReplacementFor(letter.font).program;
        const double own = program->GetAdvance(program->FindGlyphByCodePoint(letter.codePoint));
        EXPECT_EQ(AdvanceOf(letter.font, letter.glyph, own), letter.advance)
            << letter.font << ' ' << letter.glyph;
        EXPECT_NEAR(own, letter.advance, 0.5) << letter.font << ' ' << letter.glyph;
    }
}

} // namespace
} // namespace OrvFont::Detail
