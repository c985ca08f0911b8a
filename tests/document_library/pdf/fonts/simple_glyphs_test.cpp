// Which glyph a code of a simple font shows, for each kind of program and encoding.

#include "pdf/fonts/simple_glyphs.h"

#include <gtest/gtest.h>

#include "support/made_programs.h"

namespace
{

using namespace HarrowSupport::Testing;
using OrvFont::Detail::FontProgram;
using OrvPdf::BaseEncoding;
using OrvPdf::FindEmbeddedGlyph;
using OrvPdf::FindReplacementGlyph;
using OrvPdf::SimpleGlyphRules;

constexpr std::uint8_t codeOfA = 65;

/// Five glyphs, found by those maps alone.
std::shared_ptr<const FontProgram> MakeTrueType(const std::vector<MadeCharacterMap>& maps)
{
    FontTables tables = MakeSampleTrueTypeTables();
    if (!maps.empty())
        tables["cmap"] = MakeCharacterMaps(maps);
    return OpenProgram(JoinTrueType(tables));
}

SimpleGlyphRules Named(BaseEncoding base)
{
    SimpleGlyphRules rules;
    rules.encoding.base = base;
    rules.encoding.isGiven = true;
    rules.encoding.isName = true;
    return rules;
}

SimpleGlyphRules WithDifferences(const std::map<std::uint8_t, std::string>& differences)
{
    SimpleGlyphRules rules;
    rules.encoding.differences = differences;
    rules.encoding.isGiven = true;
    return rules;
}

SimpleGlyphRules Symbolic(SimpleGlyphRules rules = {})
{
    rules.isSymbolic = true;
    return rules;
}

TEST(TrueTypeGlyphs, GoByUnicodeBeforeTheMacintosh)
{
    const auto program = MakeTrueType({{1, 0, {{65, 1}}}, {3, 1, {{0x41, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Named(BaseEncoding::WinAnsi), codeOfA), 2U);
}

TEST(TrueTypeGlyphs, GoByTheNameInTheMacintoshsEncoding)
{
    const auto program = MakeTrueType({{1, 0, {{138, 3}, {228, 1}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Named(BaseEncoding::WinAnsi), 228), 3U) << "adieresis";
    EXPECT_EQ(FindEmbeddedGlyph(*program, Named(BaseEncoding::MacRoman), 138), 3U);
}

TEST(TrueTypeGlyphs, KnowTheMacintoshsNamesBeyondItsEncodingInPdf)
{
    const auto program = MakeTrueType({{1, 0, {{173, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, WithDifferences({{codeOfA, "notequal"}}), codeOfA), 2U);
}

TEST(TrueTypeGlyphs, AreThoseOfTheStandardEncodingWhereADictionaryNamesNone)
{
    const auto program = MakeTrueType({{3, 1, {{0x41, 2}, {0x42, 3}}}});
    const SimpleGlyphRules rules = WithDifferences({{66, "A"}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, rules, 66), 2U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, rules, codeOfA), 2U);
}

TEST(TrueTypeGlyphs, OfSymbolicFontsStandInTheRangeOfSymbols)
{
    for (const int range : {0xF000, 0x0000, 0xF100, 0xF200}) {
        const auto program = MakeTrueType({{3, 0, {{range + 65, 2}}}, {1, 0, {{66, 1}}}});
        EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(), codeOfA), 2U) << range;
    }
}

TEST(TrueTypeGlyphs, OfSymbolicFontsAreTheCodesOfTheMacintoshMap)
{
    const auto program = MakeTrueType({{1, 0, {{228, 4}}}, {3, 1, {{0x41, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(), 228), 4U);
}

TEST(TrueTypeGlyphs, OfSymbolicFontsDoNotHeedDifferences)
{
    const auto program = MakeTrueType({{3, 0, {{0xF041, 2}, {0xF042, 3}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(WithDifferences({{codeOfA, "B"}})), codeOfA), 2U);
}

TEST(TrueTypeGlyphs, OfSymbolicFontsHeedTheNameOfALatinEncoding)
{
    const auto program = MakeTrueType({{3, 1, {{0xE4, 1}}}, {3, 0, {{0xF0E4, 2}}}, {1, 0, {{228, 3}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(Named(BaseEncoding::WinAnsi)), 228), 1U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(Named(BaseEncoding::Standard)), 228), 2U);
}

TEST(TrueTypeGlyphs, AreFoundByCodeWhereNamesFindNone)
{
    const auto symbols = MakeTrueType({{3, 0, {{0xF041, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*symbols, Named(BaseEncoding::WinAnsi), codeOfA), 2U);
    const auto latin = MakeTrueType({{3, 1, {{0x41, 2}}}, {1, 0, {{66, 3}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*latin, WithDifferences({{66, "g17"}}), 66), 3U);
}

TEST(TrueTypeGlyphs, AreFoundByNameWhereCodesFindNone)
{
    const auto program = MakeTrueType({{3, 1, {{0x41, 2}, {0x42, 3}}}, {0, 3, {{0x41, 1}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(WithDifferences({{codeOfA, "B"}})), codeOfA), 3U);
}

TEST(TrueTypeGlyphs, OfTheNameNotdefAreMissing)
{
    const auto program = MakeTrueType({{1, 0, {{65, 1}}}, {3, 1, {{0x41, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, WithDifferences({{codeOfA, ".notdef"}}), codeOfA), 0U);
}

TEST(TrueTypeGlyphs, AreTheCodesWhereAProgramHasNoMap)
{
    const auto program = MakeTrueType({});
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(), 3), 3U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, Symbolic(), 5), 0U) << "there are five glyphs";
}

TEST(TrueTypeGlyphs, OfAHyphenThatBreaksAreThoseOfTheHyphen)
{
    const auto program = MakeTrueType({{3, 1, {{0x2D, 2}}}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, WithDifferences({{codeOfA, "uni00AD"}}), codeOfA), 2U);
}

TEST(NamedGlyphs, AreThoseOfTheProgramsOwnEncodingWithoutAnother)
{
    for (const auto& program :
         {OpenProgram(MakeCompactFont(MakeSampleCompactFont())), OpenProgram(MakeType1(MakeSampleType1()))}) {
        EXPECT_EQ(FindEmbeddedGlyph(*program, {}, 65), 1U);
        EXPECT_EQ(FindEmbeddedGlyph(*program, {}, 66), 2U);
        EXPECT_EQ(FindEmbeddedGlyph(*program, {}, 67), 0U);
    }
}

TEST(NamedGlyphs, GoByTheNameOfTheBaseEncoding)
{
    const auto program = OpenProgram(MakeType1(MakeSampleType1()));
    EXPECT_EQ(FindEmbeddedGlyph(*program, Named(BaseEncoding::WinAnsi), codeOfA), 2U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, Named(BaseEncoding::WinAnsi), 66), 0U) << "its own encoding has B";
}

TEST(NamedGlyphs, GoByDifferencesBeforeAll)
{
    const auto program = OpenProgram(MakeCompactFont(MakeSampleCompactFont()));
    const SimpleGlyphRules rules = WithDifferences({{65, "bar"}, {200, "square"}});
    EXPECT_EQ(FindEmbeddedGlyph(*program, rules, 65), 2U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, rules, 200), 1U);
    EXPECT_EQ(FindEmbeddedGlyph(*program, rules, 66), 2U) << "the program's own";
}

TEST(NamedGlyphs, AreFoundByWhatAnUnknownNameMeans)
{
    const auto program = OpenProgram(MakeType1(MakeSampleType1()));
    EXPECT_EQ(FindEmbeddedGlyph(*program, WithDifferences({{1, "uni0041"}}), 1), 2U);
}

TEST(ReplacementGlyphs, GoByWhatTheNameMeans)
{
    const auto program = MakeTrueType({{3, 1, {{0x41, 2}, {0xE4, 3}}}});
    EXPECT_EQ(FindReplacementGlyph(*program, Named(BaseEncoding::WinAnsi), 228), 3U);
    EXPECT_EQ(FindReplacementGlyph(*program, WithDifferences({{7, "A"}}), 7), 2U);
    EXPECT_EQ(FindReplacementGlyph(*program, WithDifferences({{65, "g17"}}), 65), 0U);
    EXPECT_EQ(FindReplacementGlyph(*program, WithDifferences({{65, ".notdef"}}), 65), 0U);
}

TEST(ReplacementGlyphs, GoByTheStandardEncodingWhereThatOfTheProgramIsUnknown)
{
    const auto program = MakeTrueType({{3, 1, {{0x41, 2}}}});
    EXPECT_EQ(FindReplacementGlyph(*program, {}, codeOfA), 2U);
}

TEST(ReplacementGlyphs, KnowTheNamesOfDingbatsWhereTheyAreMeant)
{
    const auto program = MakeTrueType({{3, 1, {{0x2701, 2}}}});
    SimpleGlyphRules rules = Named(BaseEncoding::ZapfDingbats);
    EXPECT_EQ(FindReplacementGlyph(*program, rules, 0x21), 0U);
    rules.isDingbats = true;
    EXPECT_EQ(FindReplacementGlyph(*program, rules, 0x21), 2U) << "a1";
}

} // namespace
