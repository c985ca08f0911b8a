#include "pdf/writer/fonts/font_measures.h"

#include <gtest/gtest.h>

#include <string>

#include "document_library/pdf/writer/program_files.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;

constexpr std::uint32_t fixedPitch = 1;
constexpr std::uint32_t serif = 2;
constexpr std::uint32_t symbolic = 4;
constexpr std::uint32_t italic = 64;

FontMeasures MeasuresOf(const std::string& name)
{
    return ReadFontMeasures(
        HarrowSupport::Testing::FileBytes("/usr/share/fonts/truetype/liberation2/" + name + ".ttf"), 0);
}

TEST(FontMeasures, AreThoseOfTheTables)
{
    const FontMeasures measures = MeasuresOf("LiberationSerif-Regular");
    EXPECT_NEAR(measures.ascent, 891, 1);
    EXPECT_NEAR(measures.descent, -216, 1);
    EXPECT_NEAR(measures.capHeight, 653, 15);
    EXPECT_EQ(measures.italicAngle, 0);
    EXPECT_EQ(measures.weight, 400);
    EXPECT_STREQ(measures.stretch, "Normal");
}

TEST(FontMeasures, FlagsTellFamiliesApart)
{
    EXPECT_EQ(MeasuresOf("LiberationSerif-Regular").flags, symbolic | serif);
    EXPECT_EQ(MeasuresOf("LiberationSans-Regular").flags, symbolic);
    EXPECT_EQ(MeasuresOf("LiberationMono-Regular").flags & fixedPitch, fixedPitch);
}

TEST(FontMeasures, ItalicsLeanToTheRight)
{
    const FontMeasures measures = MeasuresOf("LiberationSerif-Italic");
    EXPECT_LT(measures.italicAngle, -10);
    EXPECT_GT(measures.italicAngle, -25);
    EXPECT_EQ(measures.flags & italic, italic);
}

TEST(FontMeasures, BoldFontsHaveWiderStems)
{
    const FontMeasures bold = MeasuresOf("LiberationSans-Bold");
    EXPECT_EQ(bold.weight, 700);
    EXPECT_GT(bold.stemWidth, MeasuresOf("LiberationSans-Regular").stemWidth);
}

TEST(FontMeasures, CountInThousandthsOfTheEm)
{
    const FontMeasures measures = ReadFontMeasures(MakeCompactOpenType(ThreeLetters()), 0);
    EXPECT_EQ(measures.ascent, 800);
    EXPECT_EQ(measures.descent, -200);
    EXPECT_EQ(measures.capHeight, 700);
}

TEST(FontMeasures, AreUsualOnesForBytesThatSayNothing)
{
    const FontMeasures measures = ReadFontMeasures("nothing", 0);
    EXPECT_EQ(measures.ascent, 800);
    EXPECT_EQ(measures.descent, -200);
    EXPECT_EQ(measures.capHeight, 800);
    EXPECT_EQ(measures.weight, 400);
    EXPECT_EQ(measures.flags, symbolic);
}

} // namespace
} // namespace OrvPdf
