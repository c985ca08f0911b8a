#include "pdf/writer/fonts/glyph_widths.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace OrvPdf
{
namespace
{

QPDFObjectHandle FontWith(const GlyphWidths& widths)
{
    QPDFObjectHandle font = QPDFObjectHandle::newDictionary();
    SetWidths(font, widths);
    return font;
}

QPDFObjectHandle FontWith(const VerticalWidths& metrics, const GlyphWidths& widths)
{
    QPDFObjectHandle font = QPDFObjectHandle::newDictionary();
    SetVerticalWidths(font, metrics, widths);
    return font;
}

TEST(GlyphWidths, MostFrequentOneIsTheDefault)
{
    QPDFObjectHandle font = FontWith({{3, 250}, {4, 500}, {9, 500}});
    EXPECT_EQ(font.getKey("/DW").unparse(), "500");
    EXPECT_EQ(font.getKey("/W").unparse(), "[ 3 [ 250 ] ]");
}

TEST(GlyphWidths, SmallestOfEquallyFrequentOnesIsTheDefault)
{
    QPDFObjectHandle font = FontWith({{3, 600}, {4, 500}});
    EXPECT_EQ(font.getKey("/DW").unparse(), "500");
    EXPECT_EQ(font.getKey("/W").unparse(), "[ 3 [ 600 ] ]");
}

TEST(GlyphWidths, EqualOnesNeedNoList)
{
    QPDFObjectHandle font = FontWith({{3, 600}, {7, 600}});
    EXPECT_EQ(font.getKey("/DW").unparse(), "600");
    EXPECT_FALSE(font.hasKey("/W"));
}

TEST(GlyphWidths, NoneNeedNothing)
{
    EXPECT_EQ(FontWith(GlyphWidths()).unparse(), "<< >>");
}

TEST(GlyphWidths, NeighboursAreOneListAndGapsEndIt)
{
    QPDFObjectHandle font = FontWith({{1, 10}, {2, 20}, {3, 30}, {5, 50}, {8, 0}, {9, 0}});
    EXPECT_EQ(font.getKey("/W").unparse(), "[ 1 [ 10 20 30 ] 5 [ 50 ] ]");
}

TEST(GlyphWidths, FourEqualNeighboursAreARangeAndThreeAreNot)
{
    const GlyphWidths usual = {{90, 0}, {92, 0}, {94, 0}, {96, 0}, {98, 0}};
    GlyphWidths widths = {{1, 10}, {2, 20}, {3, 20}, {4, 20}, {5, 20}, {6, 60}};
    widths.insert(usual.begin(), usual.end());
    EXPECT_EQ(FontWith(widths).getKey("/W").unparse(), "[ 1 [ 10 ] 2 5 20 6 [ 60 ] ]");
    widths.erase(5);
    EXPECT_EQ(FontWith(widths).getKey("/W").unparse(), "[ 1 [ 10 20 20 20 ] 6 [ 60 ] ]");
}

TEST(GlyphWidths, DefaultIsAnInteger)
{
    QPDFObjectHandle font = FontWith({{1, 443.25}, {2, 443.25}, {3, 250}});
    EXPECT_EQ(font.getKey("/DW").unparse(), "250");
    EXPECT_EQ(font.getKey("/W").unparse(), "[ 1 [ 443.25 443.25 ] ]");
    EXPECT_EQ(FontWith({{1, 443.25}}).unparse(), "<< /W [ 1 [ 443.25 ] ] >>");
}

TEST(GlyphWidths, AreWrittenInFull)
{
    EXPECT_EQ(FontWith({{1, 556.15234375}}).getKey("/W").unparse(), "[ 1 [ 556.15234375 ] ]");
    EXPECT_EQ(FontWith({{1, 1000.0 / 3}}).getKey("/W").unparse(), "[ 1 [ 333.3333333333333 ] ]");
}

TEST(GlyphWidths, InfiniteOneIsRefused)
{
    EXPECT_THROW(FontWith({{1, std::numeric_limits<double>::infinity()}}), std::invalid_argument);
}

TEST(VerticalWidths, UsualPlacesNeedNoList)
{
    QPDFObjectHandle font = FontWith({{1, {-1000, 250, 880}}, {2, {-1000, 300, 880}}}, {{1, 500}, {2, 600}});
    EXPECT_EQ(font.getKey("/DW2").unparse(), "[ 880 -1000 ]");
    EXPECT_FALSE(font.hasKey("/W2"));
}

TEST(VerticalWidths, OtherPlacesAreListedInTheOrderAdvanceAcrossUp)
{
    const GlyphWidths widths = {{1, 500}, {2, 500}, {3, 500}, {4, 500}};
    QPDFObjectHandle font = FontWith(
        {{1, {-1000, 250, 880}}, {2, {-1000, 251, 880}}, {3, {-900, 250, 880}}, {4, {-1000, 250, 880}}},
        widths);
    EXPECT_EQ(font.getKey("/DW2").unparse(), "[ 880 -1000 ]");
    EXPECT_EQ(font.getKey("/W2").unparse(), "[ 2 [ -1000 251 880 -900 250 880 ] ]");
}

TEST(VerticalWidths, EqualNeighboursAreARange)
{
    VerticalWidths metrics = {{20, {-1000, 250, 880}}};
    GlyphWidths widths = {{20, 500}};
    for (std::uint32_t code = 3; code < 7; ++code) {
        metrics[code] = {-1000, 7, 880};
        widths[code] = 500;
    }
    EXPECT_EQ(FontWith(metrics, widths).getKey("/W2").unparse(), "[ 3 6 -1000 7 880 ]");
}

} // namespace
} // namespace OrvPdf
