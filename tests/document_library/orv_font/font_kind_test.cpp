#include "orv_font/font_kind.h"

#include <gtest/gtest.h>

namespace OrvFont::Detail
{
namespace
{

using Design = FontKind::Design;

std::string KindOf(const std::string& name, const FontHints& hints = {})
{
    const FontKind kind = FindFontKind(name, hints);
    std::string text;
    switch (kind.design) {
    case Design::Sans:
        text = "sans";
        break;
    case Design::Serif:
        text = "serif";
        break;
    case Design::FixedPitch:
        text = "fixed";
        break;
    case Design::Symbols:
        text = "symbols";
        break;
    case Design::Dingbats:
        text = "dingbats";
        break;
    }
    return text + (kind.isBold ? " bold" : "") + (kind.isItalic ? " italic" : "");
}

TEST(FontKind, OfTheStandardFonts)
{
    EXPECT_EQ(KindOf("Helvetica"), "sans");
    EXPECT_EQ(KindOf("Helvetica-Bold"), "sans bold");
    EXPECT_EQ(KindOf("Helvetica-Oblique"), "sans italic");
    EXPECT_EQ(KindOf("Helvetica-BoldOblique"), "sans bold italic");
    EXPECT_EQ(KindOf("Times-Roman"), "serif");
    EXPECT_EQ(KindOf("Times-Bold"), "serif bold");
    EXPECT_EQ(KindOf("Times-Italic"), "serif italic");
    EXPECT_EQ(KindOf("Times-BoldItalic"), "serif bold italic");
    EXPECT_EQ(KindOf("Courier"), "fixed");
    EXPECT_EQ(KindOf("Courier-Bold"), "fixed bold");
    EXPECT_EQ(KindOf("Courier-Oblique"), "fixed italic");
    EXPECT_EQ(KindOf("Courier-BoldOblique"), "fixed bold italic");
    EXPECT_EQ(KindOf("Symbol"), "symbols");
    EXPECT_EQ(KindOf("ZapfDingbats"), "dingbats");
    EXPECT_EQ(KindOf("ZapfDingbats-Bold"), "dingbats");
}

TEST(FontKind, OfTheirAliases)
{
    EXPECT_EQ(KindOf("Arial"), "sans");
    EXPECT_EQ(KindOf("ArialMT"), "sans");
    EXPECT_EQ(KindOf("Arial,Bold"), "sans bold");
    EXPECT_EQ(KindOf("Arial-BoldMT"), "sans bold");
    EXPECT_EQ(KindOf("Arial-BoldItalicMT"), "sans bold italic");
    EXPECT_EQ(KindOf("Arial Italic"), "sans italic");
    EXPECT_EQ(KindOf("ABCDEF+Arial-ItalicMT"), "sans italic");
    EXPECT_EQ(KindOf("TimesNewRoman"), "serif");
    EXPECT_EQ(KindOf("TimesNewRoman,BoldItalic"), "serif bold italic");
    EXPECT_EQ(KindOf("TimesNewRomanPSMT"), "serif");
    EXPECT_EQ(KindOf("TimesNewRomanPS-BoldMT"), "serif bold");
    EXPECT_EQ(KindOf("Times New Roman"), "serif");
    EXPECT_EQ(KindOf("CourierNew"), "fixed");
    EXPECT_EQ(KindOf("CourierNew,Italic"), "fixed italic");
    EXPECT_EQ(KindOf("CourierNewPS-BoldMT"), "fixed bold");
    EXPECT_EQ(KindOf("SymbolMT"), "symbols");
    EXPECT_EQ(KindOf("Symbol,Bold"), "symbols");
}

TEST(FontKind, OfTheLibrarysOwnNames)
{
    EXPECT_EQ(KindOf("QuorleSerif"), "serif");
    EXPECT_EQ(KindOf("LiberationSerif-BoldItalic"), "serif bold italic");
    EXPECT_EQ(KindOf("LiberationSans"), "sans");
    EXPECT_EQ(KindOf("LiberationMono-Bold"), "fixed bold");
    EXPECT_EQ(KindOf("DejaVuSans"), "symbols");
    EXPECT_EQ(KindOf("DejaVuSansMono"), "fixed");
}

TEST(FontKind, OfAnUnknownNameFollowsItsWords)
{
    EXPECT_EQ(KindOf("Unheard"), "sans");
    EXPECT_EQ(KindOf("UnheardSerif-Semibold"), "serif bold");
    EXPECT_EQ(KindOf("Unheard Sans Serif"), "sans");
    EXPECT_EQ(KindOf("UnheardMono-It"), "fixed italic");
    EXPECT_EQ(KindOf("Unheard-BdIt"), "sans bold italic");
    EXPECT_EQ(KindOf("MSMincho"), "serif");
    EXPECT_EQ(KindOf(""), "sans");
}

TEST(FontKind, IsNotMisledByPartsOfWords)
{
    EXPECT_EQ(KindOf("MonotypeUnheard"), "sans");
    EXPECT_EQ(KindOf("MonotypeUnheardMono"), "fixed");
    EXPECT_EQ(KindOf("Academic"), "sans");
    EXPECT_EQ(KindOf("Summit"), "sans");
    EXPECT_EQ(KindOf("ABCDEF+Summit"), "sans");
}

TEST(FontKind, OfAnUnknownNameFollowsTheHints)
{
    FontHints hints;
    hints.isSerif = true;
    EXPECT_EQ(KindOf("Unheard", hints), "serif");
    hints.isFixedPitch = true;
    EXPECT_EQ(KindOf("Unheard", hints), "fixed");
    hints.isItalic = true;
    EXPECT_EQ(KindOf("Unheard", hints), "fixed italic");
    hints.isBold = true;
    EXPECT_EQ(KindOf("Unheard", hints), "fixed bold italic");
}

TEST(FontKind, IsBoldFromSemiboldOn)
{
    FontHints hints;
    hints.weight = 599;
    EXPECT_EQ(KindOf("Unheard", hints), "sans");
    hints.weight = 600;
    EXPECT_EQ(KindOf("Unheard", hints), "sans bold");
}

TEST(FontKind, OfAKnownNameKeepsItsDesignAgainstTheHints)
{
    FontHints hints;
    hints.isSerif = true;
    hints.isFixedPitch = true;
    EXPECT_EQ(KindOf("Arial", hints), "sans");
    EXPECT_EQ(KindOf("Times-Roman", hints), "serif");
    EXPECT_EQ(KindOf("UnheardSans", hints), "sans");
}

} // namespace
} // namespace OrvFont::Detail
