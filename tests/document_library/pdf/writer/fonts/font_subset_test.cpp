#include "pdf/writer/fonts/font_subset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include <plexa/compound.h>

#include "document_library/pdf/writer/program_files.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;

std::string WhyNot(const std::string& program, unsigned face, const GlyphSet& glyphs)
{
    try {
        MakeFontSubset(program, face, glyphs);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "it works";
}

class SubsetOfSerif : public ::testing::Test
{
protected:
    std::shared_ptr<const FontProgram> whole = LoadSerif();
    GlyphSet glyphs = GlyphsOf(*whole, U"Aé Ωλ Жй ﬁ\u1E9E");
    std::shared_ptr<const FontProgram> part = OpenedSubset(*whole, glyphs);
};

TEST_F(SubsetOfSerif, HasTheSameOutlinesAndAdvancesUnderTheSameIds)
{
    ASSERT_EQ(glyphs.size(), 9U);
    for (const std::uint32_t glyph : glyphs)
        EXPECT_TRUE(IsSameGlyph(*whole, *part, glyph));
    EXPECT_TRUE(part->MakeOutline(whole->FindGlyphByCodePoint(U'A'), noShift));
}

TEST_F(SubsetOfSerif, LacksOtherGlyphs)
{
    EXPECT_TRUE(whole->MakeOutline(whole->FindGlyphByCodePoint(U'Q'), noShift));
    EXPECT_FALSE(part->MakeOutline(whole->FindGlyphByCodePoint(U'Q'), noShift));
}

TEST_F(SubsetOfSerif, IsMuchSmaller)
{
    EXPECT_LT(20 * part->GetBytes()->size(), whole->GetBytes()->size());
}

TEST_F(SubsetOfSerif, KeepsNamesAndBox)
{
    EXPECT_EQ(part->GetNames().name, "LiberationSerif");
    EXPECT_EQ(part->GetNames().family, "Liberation Serif");
    EXPECT_EQ(part->GetNames().style, "Regular");
    EXPECT_EQ(part->GetBox(), whole->GetBox());
}

TEST_F(SubsetOfSerif, IsTheSameEachTime)
{
    EXPECT_TRUE(MakeFontSubset(*whole->GetBytes(), 0, glyphs) == *part->GetBytes());
}

TEST(FontSubset, KeepsTheStyleOfABoldFont)
{
    const auto whole =
        FontProgram::Load("/usr/share/fonts/truetype/liberation2/LiberationSans-BoldItalic.ttf");
    EXPECT_EQ(OpenedSubset(*whole, {40})->GetNames().style, "Bold Italic");
}

TEST(FontSubset, WithoutGlyphsStillHasTheOneForWhatIsMissing)
{
    const auto whole = Opened(MakeCompactOpenType(ThreeLetters()));
    ASSERT_TRUE(whole->MakeOutline(0, noShift));
    EXPECT_TRUE(IsSameGlyph(*whole, *OpenedSubset(*whole, {}), 0));
}

TEST(FontSubset, HasThePartsOfAGlyphThatIsMadeOfOthers)
{
    using namespace HarrowSupport::Testing;
    const auto whole = Opened(JoinTrueType(MakeSampleTrueTypeTables()));
    const auto part = OpenedSubset(*whole, {3});
    ASSERT_TRUE(whole->MakeOutline(3, noShift));
    EXPECT_TRUE(IsSameGlyph(*whole, *part, 3));
}

TEST(FontSubset, KeepsCompactOutlinesToTheLastBit)
{
    const auto whole = Opened(MakeCompactOpenType(ThreeLetters()));
    ASSERT_EQ(whole->GetGlyphCount(), 5U);
    const auto part = OpenedSubset(*whole, {2, 4});
    EXPECT_EQ(part->GetFormat(), FontProgram::Format::Cff);
    ASSERT_TRUE(whole->MakeOutline(2, noShift));
    for (const std::uint32_t glyph : {0U, 2U, 4U})
        EXPECT_TRUE(IsSameGlyph(*whole, *part, glyph));
}

TEST(FontSubset, KeepsEachNameOfCompactOutlines)
{
    HarrowSupport::Testing::MadeFont font = ThreeLetters();
    font.family = "Drawn";
    font.style = "Fat";
    const auto part = OpenedSubset(*Opened(MakeCompactOpenType(font)), {1});
    EXPECT_EQ(part->GetNames().name, "Made-Regular");
    EXPECT_EQ(part->GetNames().family, "Drawn");
    EXPECT_EQ(part->GetNames().style, "Fat");
}

TEST(FontSubset, SaysWhatIsWrong)
{
    const std::string made = MakeCompactOpenType(ThreeLetters());
    EXPECT_THAT(WhyNot("nothing of that kind", 0, {}), HasSubstr("no TrueType or OpenType font"));
    EXPECT_THAT(WhyNot({}, 0, {}), HasSubstr("no TrueType or OpenType font"));
    EXPECT_THAT(WhyNot(made, 1, {}), HasSubstr("no face 1 in a font file of 1"));
    EXPECT_THAT(WhyNot(made, 0, {5}), HasSubstr("no glyph 5 in a font of 5"));
    EXPECT_EQ(WhyNot(made, 0, {4}), "it works");
}

TEST(FontSubset, CutOffFilesGiveAnAnswer)
{
    const std::string whole = *LoadSerif()->GetBytes();
    for (std::size_t size = 0; size < whole.size(); size += whole.size() / 50)
        WhyNot(whole.substr(0, size), 0, {36, 37});
}

TEST(IsTableFont, KnowsFilesOfTables)
{
    EXPECT_TRUE(IsTableFont(*LoadSerif()->GetBytes()));
    EXPECT_TRUE(IsTableFont(MakeCompactOpenType(ThreeLetters())));
    EXPECT_FALSE(IsTableFont("%!PS-AdobeFont-1.0: Made"));
    EXPECT_FALSE(IsTableFont(MakeBareCompactFont(ThreeLetters())));
    EXPECT_FALSE(IsTableFont({}));
}

TEST(SubsetTag, IsSixCapitalLetters)
{
    EXPECT_THAT(MakeSubsetTag("Made", {1, 2}), MatchesRegex("[A-Z][A-Z][A-Z][A-Z][A-Z][A-Z]"));
}

TEST(SubsetTag, FollowsFromNameAndGlyphs)
{
    EXPECT_EQ(MakeSubsetTag("Made", {1, 2}), MakeSubsetTag("Made", {2, 1}));
    EXPECT_NE(MakeSubsetTag("Made", {1, 2}), MakeSubsetTag("Made", {1, 3}));
    EXPECT_NE(MakeSubsetTag("Made", {1, 2}), MakeSubsetTag("Made", {1}));
    EXPECT_NE(MakeSubsetTag("Made", {1, 2}), MakeSubsetTag("Maid", {1, 2}));
}

} // namespace
} // namespace OrvPdf
