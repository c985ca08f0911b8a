#include "pdf/writer/fonts/glyph_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/writer/program_files.h"

namespace OrvPdf
{
namespace
{

using namespace Testing;
using ::testing::ElementsAre;
using ::testing::Pair;

/// The text of the glyph of a code point.
std::u16string TextOf(const FontProgram& program, char32_t codePoint)
{
    const std::uint32_t glyph = program.FindGlyphByCodePoint(codePoint);
    const GlyphTexts texts = ReadGlyphTexts(program, {glyph});
    const auto found = texts.find(glyph);
    return found == texts.end() ? std::u16string() : found->second;
}

TEST(GlyphTexts, AreTheCodePointsOfTheGlyphs)
{
    const auto serif = LoadSerif();
    for (const char32_t codePoint : std::u32string(U"AzéΩλЖйﬁ€")) {
        EXPECT_EQ(TextOf(*serif, codePoint), std::u16string(1, static_cast<char16_t>(codePoint)))
            << static_cast<unsigned>(codePoint);
    }
}

TEST(GlyphTexts, GlyphOfSeveralCodePointsIsThePlainestOne)
{
    const auto textOfGlyph = [](std::vector<char16_t> codePoints) {
        HarrowSupport::Testing::MadeFont font = ThreeLetters();
        font.glyphs[4].otherCodePoints = std::move(codePoints);
        return ReadGlyphTexts(*Opened(MakeCompactOpenType(font)), {4})[4];
    };
    EXPECT_EQ(textOfGlyph({0xA0, u' '}), u" ");
    EXPECT_EQ(textOfGlyph({0xAD, u'-', 0x2010}), u"-");
    EXPECT_EQ(textOfGlyph({0xB5, 0x3BC}), u"\u03BC");
    EXPECT_EQ(textOfGlyph({0xD, u'x'}), u"x");
    EXPECT_EQ(textOfGlyph({0xE000, 0xFB01}), u"\uFB01");
    EXPECT_EQ(textOfGlyph({0xE000}), u"\uE000");
}

TEST(GlyphTexts, AreThereForTheWantedGlyphsAlone)
{
    const auto made = Opened(MakeCompactOpenType(ThreeLetters()));
    EXPECT_THAT(ReadGlyphTexts(*made, {1, 3}), ElementsAre(Pair(1, u"A"), Pair(3, u"C")));
}

TEST(GlyphTexts, GlyphThatStandsForNothingIsLeftOut)
{
    const auto made = Opened(MakeCompactOpenType(ThreeLetters()));
    EXPECT_THAT(ReadGlyphTexts(*made, {0, 2, 4}), ElementsAre(Pair(2, u"B")));
}

TEST(GlyphTexts, NameTellsWhatTheCodePointsDoNot)
{
    HarrowSupport::Testing::MadeFont font = ThreeLetters();
    font.glyphs[4].name = "f_i";
    font.glyphs[3].name = "Q";
    const auto made = Opened(MakeCompactOpenType(font));
    EXPECT_THAT(ReadGlyphTexts(*made, {3, 4}), ElementsAre(Pair(3, u"C"), Pair(4, u"fi")));
}

TEST(GlyphTexts, ComeFromNamesInAProgramWithoutCodePoints)
{
    HarrowSupport::Testing::MadeFont font = ThreeLetters();
    font.glyphs[2].name = "beta";
    EXPECT_THAT(ReadGlyphTexts(*Opened(MakeBareCompactFont(font)), {2, 3}), ElementsAre(Pair(2, u"\u03B2")));
}

TEST(GlyphTexts, CodePointsBeyondSixteenBitsAreTwoUnits)
{
    const auto sans = FontProgram::Load("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    ASSERT_NE(sans->FindGlyphByCodePoint(0x1D538), 0U);
    EXPECT_EQ(TextOf(*sans, 0x1D538), u"\xD835\xDD38");
}

} // namespace
} // namespace OrvPdf
