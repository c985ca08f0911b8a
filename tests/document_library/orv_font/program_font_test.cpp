#include "orv_font/program_font.h"

#include <sstream>

#include <gtest/gtest.h>

#include "support/made_programs.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Character;
using OrvFont::Font;
using OrvFont::WritingMode;
using OrvFont::Detail::MakeProgramFont;

std::string MakeBytes()
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["cmap"] = MakeCharacterMaps({{3, 1, {{'T', 1}, {'C', 2}}}});
    tables["name"] = MakeNameTable({{1, "Made"}, {2, "Bold"}, {6, "Made-Bold"}});
    return JoinTrueType(tables);
}

std::shared_ptr<const Font> MakeFont(WritingMode mode)
{
    return MakeProgramFont(OpenProgram(MakeBytes()), mode);
}

std::string OutlineText(const Font& font, const Character& character)
{
    std::ostringstream text;
    text << font.GetOutline(character);
    return text.str();
}

TEST(ProgramFont, HasTheNamesAndTheBoxOfTheProgram)
{
    const auto font = MakeFont(WritingMode::Horizontal);
    EXPECT_EQ(font->GetName(), "Made-Bold");
    EXPECT_EQ(font->GetFamilyName(), "Made");
    EXPECT_EQ(font->GetStyleName(), "Bold");
    EXPECT_EQ(font->GetFontBBox(), Font::Rectangle(0.0, 0.0, 600.0, 700.0));
    EXPECT_EQ(font->GetWritingMode(), WritingMode::Horizontal);
}

TEST(ProgramFont, HasGlyphsAsCodesOfTwoBytes)
{
    const auto font = MakeFont(WritingMode::Horizontal);
    std::vector<Character> characters;
    EXPECT_TRUE(font->Uni16StringToFontCharacters(L"TC", characters));
    EXPECT_EQ(characters, (std::vector<Character>{{1, 1, 2}, {2, 2, 2}}));
}

TEST(ProgramFont, IsDrawnFromItsOrigin)
{
    const auto font = MakeFont(WritingMode::Horizontal);
    EXPECT_EQ(OutlineText(*font, {1, 1, 2}), "NonZero { M 0 0 L 400 0 L 200 300 Z }");
    EXPECT_EQ(font->GetAdvance({1, 1, 2}), 600.0);
}

TEST(ProgramFont, WrittenVerticallyHangsFromTheMiddle)
{
    const auto font = MakeFont(WritingMode::Vertical);
    EXPECT_EQ(OutlineText(*font, {1, 1, 2}), "NonZero { M -300 -880 L 100 -880 L -100 -580 Z }");
    EXPECT_EQ(font->GetAdvance({1, 1, 2}), -1000.0);
    EXPECT_EQ(font->GetWritingMode(), WritingMode::Vertical);
}

TEST(ProgramFont, GivesAnEmptyShapeForAGlyphWithoutAnOutline)
{
    const auto font = MakeFont(WritingMode::Horizontal);
    EXPECT_EQ(OutlineText(*font, {4, 4, 2}), "NonZero { }");
    EXPECT_EQ(OutlineText(*font, {99, 99, 2}), "NonZero { }");
}

TEST(ProgramFont, HasTheOutlinesOfAnotherOneOfTheSameProgram)
{
    const auto program = OpenProgram(MakeBytes());
    const auto left = MakeProgramFont(program, WritingMode::Horizontal);
    EXPECT_TRUE(HaveSameOutlines(*left, *MakeProgramFont(program, WritingMode::Horizontal)));
    EXPECT_TRUE(HaveSameOutlines(*left, *MakeFont(WritingMode::Horizontal)));
    const auto vertical = MakeProgramFont(program, WritingMode::Vertical);
    EXPECT_FALSE(HaveSameOutlines(*left, *vertical));
    EXPECT_FALSE(HaveSameOutlines(*vertical, *left));
    const auto other = MakeProgramFont(OpenProgram(MakeType1(MakeSampleType1())), WritingMode::Horizontal);
    EXPECT_FALSE(HaveSameOutlines(*left, *other));
    EXPECT_FALSE(HaveSameOutlines(*other, *left));
}

} // namespace
} // namespace HarrowSupport::Testing
