#include "orv_font/font_program.h"

#include <stdexcept>

#include <gmock/gmock.h>

#include "support/made_programs.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Detail::FontProgram;
using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr const char* serifFile = "/usr/share/fonts/truetype/liberation2/LiberationSerif-Regular.ttf";
constexpr const char* boldSansFile = "/usr/share/fonts/truetype/liberation2/LiberationSans-BoldItalic.ttf";

std::string ProblemOf(const std::string& bytes, unsigned face = 0)
{
    try {
        FontProgram program(std::make_shared<const std::string>(bytes), face);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

std::string NamesOf(const std::string& bytes)
{
    const OrvFont::Font::Names names = OpenProgram(bytes)->GetNames();
    return names.name + '|' + names.family + '|' + names.style;
}

std::string MakeNamed(const std::map<int, std::string>& names)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["name"] = MakeNameTable(names);
    return JoinTrueType(tables);
}

TEST(FontProgram, TellsItsFormat)
{
    EXPECT_EQ(OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->GetFormat(),
              FontProgram::Format::TrueType);
    EXPECT_EQ(OpenProgram(MakeCompactFont(MakeSampleCompactFont()))->GetFormat(), FontProgram::Format::Cff);
    EXPECT_EQ(OpenProgram(MakeType1(MakeSampleType1()))->GetFormat(), FontProgram::Format::Type1);
    EXPECT_EQ(OpenProgram(MakeSegmentedType1(MakeSampleType1()))->GetFormat(), FontProgram::Format::Type1);
}

TEST(FontProgram, IsRefusedIfItsBytesAreNone)
{
    EXPECT_THAT(ProblemOf(""), HasSubstr("empty"));
    EXPECT_THAT(ProblemOf("   \n"), HasSubstr("can't be used"));
    EXPECT_THAT(ProblemOf("%PDF-1.7"), HasSubstr("no TrueType, OpenType, CFF or Type 1"));
    EXPECT_THROW(FontProgram(nullptr), std::runtime_error);
}

TEST(FontProgram, OfAKindThatNoPdfHasIsRefused)
{
    const std::string bitmaps = "STARTFONT 2.1\nFONT -a-b-c-d-e--1-1-1-1-p-1-iso10646-1\nSIZE 1 72 72\n"
                                "FONTBOUNDINGBOX 1 1 0 0\nSTARTPROPERTIES 0\nENDPROPERTIES\nCHARS 1\n"
                                "STARTCHAR A\nENCODING 65\nSWIDTH 1 0\nDWIDTH 1 0\nBBX 1 1 0 0\nBITMAP\n80\n"
                                "ENDCHAR\nENDFONT\n";
    EXPECT_THAT(ProblemOf(bitmaps), HasSubstr("no TrueType, OpenType, CFF or Type 1"));
}

TEST(FontProgram, HasNoFaceBeyondItsLast)
{
    const std::string bytes = JoinTrueType(MakeSampleTrueTypeTables());
    EXPECT_EQ(ProblemOf(bytes, 0), "none");
    EXPECT_NE(ProblemOf(bytes, 1), "none");
    EXPECT_NE(ProblemOf(bytes, 0x10000), "none");
}

TEST(FontProgram, WithoutHorizontalMetricsIsRefused)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables.erase("hhea");
    EXPECT_THAT(ProblemOf(JoinTrueType(tables)), HasSubstr("damaged"));
}

TEST(FontProgram, MayBeginWithWhiteSpaceIfItIsOfType1)
{
    const auto program = OpenProgram("\r\n " + MakeType1(MakeSampleType1()));
    EXPECT_EQ(program->GetFormat(), FontProgram::Format::Type1);
    EXPECT_EQ(program->GetAdvance(1), 600.0);
}

TEST(FontProgram, KeepsItsBytesAndFace)
{
    const auto bytes = std::make_shared<const std::string>(MakeType1(MakeSampleType1()));
    const FontProgram program(bytes);
    EXPECT_EQ(program.GetBytes(), bytes);
    EXPECT_EQ(program.GetFace(), 0u);
}

TEST(FontProgram, CountsItsGlyphs)
{
    EXPECT_EQ(OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->GetGlyphCount(), 5u);
    EXPECT_EQ(OpenProgram(MakeCompactFont(MakeSampleCompactFont()))->GetGlyphCount(), 3u);
    EXPECT_EQ(OpenProgram(MakeType1(MakeSampleType1()))->GetGlyphCount(), 3u);
}

TEST(FontProgram, TakesItsNamesFromTheNameTable)
{
    const auto program = FontProgram::Load(boldSansFile);
    EXPECT_EQ(program->GetNames().name, "LiberationSans-BoldItalic");
    EXPECT_EQ(program->GetNames().family, "Liberation Sans");
    EXPECT_EQ(program->GetNames().style, "Bold Italic");
}

TEST(FontProgram, OfType1TakesItsNamesFromItsDictionary)
{
    const auto program = OpenProgram(MakeType1(MakeSampleType1()));
    EXPECT_EQ(program->GetNames().name, "MadeType-Bold");
    EXPECT_EQ(program->GetNames().family, "Made Type");
    EXPECT_EQ(program->GetNames().style, "Bold");
}

TEST(FontProgram, OfCompactFormatTakesItsNameFromItsIndex)
{
    // It says nothing about a family.
    EXPECT_EQ(NamesOf(MakeCompactFont(MakeSampleCompactFont())), "MadeCompact-Bold|MadeCompact|Bold");
}

TEST(FontProgram, HasNamesInUtf8WhateverItsBytes)
{
    MadeType1Font font = MakeSampleType1();
    font.familyName = "Caf\xE9";
    EXPECT_EQ(NamesOf(MakeType1(font)), "MadeType-Bold|Caf\xC3\xA9|Bold");
    font.familyName = "Caf\xC3\xA9";
    EXPECT_EQ(NamesOf(MakeType1(font)), "MadeType-Bold|Caf\xC3\xA9|Bold");
}

TEST(FontProgram, LosesTheTagOfASubset)
{
    MadeType1Font font = MakeSampleType1();
    font.postScriptName = "ABCDEF+MadeType-Bold";
    EXPECT_EQ(NamesOf(MakeType1(font)), "MadeType-Bold|Made Type|Bold");
    EXPECT_EQ(NamesOf(MakeNamed({{1, "ABCDEF+Made"}, {2, "Bold"}, {6, "ABCDEF+Made-Bold"}})),
              "Made-Bold|Made|Bold");
}

TEST(FontProgram, WithoutNamesHasNone)
{
    EXPECT_EQ(NamesOf(JoinTrueType(MakeSampleTrueTypeTables())), "||");
}

TEST(FontProgram, DerivesWhatItsNameTableDoesNotSay)
{
    EXPECT_EQ(NamesOf(MakeNamed({{6, "Made-BoldItalic"}})), "Made-BoldItalic|Made|Bold Italic");
    EXPECT_EQ(NamesOf(MakeNamed({{1, "Own"}, {6, "Made-Bold"}})), "Made-Bold|Own|Bold");
    EXPECT_EQ(NamesOf(MakeNamed({{1, "Own"}, {2, "Heavy"}, {6, "Made-Bold"}})), "Made-Bold|Own|Heavy");
}

TEST(FontProgram, DerivesAFamilyThatIsOnlyCalledLikeTheFont)
{
    EXPECT_EQ(NamesOf(MakeNamed({{1, "ABCDEF+Made-Light"}, {2, "Regular"}, {6, "Made-Light"}})),
              "Made-Light|Made|Light");
    EXPECT_EQ(NamesOf(MakeNamed({{1, "Made"}, {2, "Heavy"}, {6, "Made"}})), "Made|Made|Heavy");
}

TEST(FontProgram, StatesItsBoxInThousandths)
{
    const auto box = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->GetBox();
    EXPECT_EQ(box, OrvFont::Font::Rectangle(0.0, 0.0, 600.0, 700.0));
    // The table `head` says -1114, -621, 2618, 2010 of 2048.
    const auto serifBox = FontProgram::Load(serifFile)->GetBox();
    EXPECT_EQ(serifBox.origin.x.value * 2048, -1114'000.0);
    EXPECT_EQ(serifBox.origin.y.value * 2048, -621'000.0);
    EXPECT_EQ(serifBox.size.width.value * 2048, (2618 + 1114) * 1000.0);
    EXPECT_EQ(serifBox.size.height.value * 2048, (2010 + 621) * 1000.0);
}

TEST(FontProgram, OfTimesHasTheAdvancesOfTimes)
{
    const auto program = FontProgram::Load(serifFile);
    const auto advanceOf = [&](char32_t codePoint) {
        return program->GetAdvance(program->FindGlyphByCodePoint(codePoint));
    };
    EXPECT_NEAR(advanceOf('A'), 722.0, 0.5);
    EXPECT_NEAR(advanceOf('i'), 278.0, 0.5);
    EXPECT_NEAR(advanceOf(' '), 250.0, 0.5);
    EXPECT_EQ(advanceOf('A'), 1479 * 1000.0 / 2048);
}

TEST(FontProgram, HasNoAdvanceForAGlyphThatIsNotThere)
{
    for (const std::string& bytes : {JoinTrueType(MakeSampleTrueTypeTables()), MakeType1(MakeSampleType1()),
                                     MakeCompactFont(MakeSampleCompactFont())}) {
        const auto program = OpenProgram(bytes);
        EXPECT_NE(program->GetAdvance(program->GetGlyphCount() - 1), 0.0);
        EXPECT_EQ(program->GetAdvance(program->GetGlyphCount()), 0.0);
        EXPECT_EQ(program->GetAdvance(0xFFFFFFFF), 0.0);
    }
}

TEST(FontProgram, TellsAdvancesOfEveryFormat)
{
    EXPECT_EQ(OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->GetAdvance(1), 600.0);
    EXPECT_EQ(OpenProgram(MakeCompactFont(MakeSampleCompactFont()))->GetAdvance(2), 300.0);
    EXPECT_EQ(OpenProgram(MakeType1(MakeSampleType1()))->GetAdvance(2), 722.0);
}

TEST(FontProgram, OfType1ScalesAdvancesByItsMatrix)
{
    MadeType1Font font = MakeSampleType1();
    font.matrix = "0.0005 0 0 0.0005 0 0";
    EXPECT_EQ(OpenProgram(MakeType1(font))->GetAdvance(1), 300.0);
    font.matrix = "0.0005 0 0 0.001 0 0";
    EXPECT_EQ(OpenProgram(MakeType1(font))->GetAdvance(1), 300.0);
}

TEST(FontProgram, WithoutVerticalMetricsAdvancesDownwardsByTheEm)
{
    EXPECT_EQ(OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->GetVerticalAdvance(1), -1000.0);
    EXPECT_EQ(OpenProgram(MakeType1(MakeSampleType1()))->GetVerticalAdvance(1), -1000.0);
}

TEST(FontProgram, WithVerticalMetricsAdvancesByThem)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["vhea"] = FontBytes()
                         .Add32(0x10000)
                         .Add16(500)
                         .Add16(-500)
                         .Add16(0)
                         .Add16(900)
                         .AddText(std::string(22, '\0'))
                         .Add16(2)
                         .text;
    // Two with an advance each; those behind have that of the last.
    tables["vmtx"] = FontBytes().Add16(900).Add16(0).Add16(850).Add16(0).Add16(0).Add16(0).Add16(0).text;
    const auto program = OpenProgram(JoinTrueType(tables));
    EXPECT_EQ(program->GetVerticalAdvance(0), -900.0);
    EXPECT_EQ(program->GetVerticalAdvance(1), -850.0);
    EXPECT_EQ(program->GetVerticalAdvance(4), -850.0);
}

TEST(FontProgram, IsTheSameAsOneOfTheSameBytes)
{
    const std::string bytes = MakeType1(MakeSampleType1());
    const auto left = OpenProgram(bytes);
    const auto right = OpenProgram(bytes);
    const auto other = OpenProgram(bytes + "\n");
    for (int time = 0; time < 2; ++time) {
        EXPECT_TRUE(left->IsSameAs(*left));
        EXPECT_TRUE(left->IsSameAs(*right));
        EXPECT_TRUE(right->IsSameAs(*left));
        EXPECT_FALSE(left->IsSameAs(*other));
        EXPECT_FALSE(other->IsSameAs(*left));
    }
}

TEST(FontProgram, IsReadFromAFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.Write("made.pfb", MakeSegmentedType1(MakeSampleType1()));
    EXPECT_EQ(FontProgram::Load(path)->GetNames().name, "MadeType-Bold");
}

TEST(FontProgram, NamesTheFileThatCanNotBeRead)
{
    const TemporaryFolder folder;
    const auto problemOf = [](const std::string& path) -> std::string {
        try {
            FontProgram::Load(path);
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "none";
    };
    EXPECT_THAT(problemOf("/nowhere/font.ttf"), HasSubstr("/nowhere/font.ttf"));
    EXPECT_THAT(problemOf(folder.NameOf("")), HasSubstr(folder.NameOf("")));
    const std::string text = folder.Write("text.ttf", "Dear reader");
    EXPECT_THAT(problemOf(text), AllOf(HasSubstr(text), HasSubstr("no TrueType")));
}

} // namespace
} // namespace HarrowSupport::Testing
