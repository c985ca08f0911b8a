#include <gtest/gtest.h>

#include "orv_font/font_program.h"
#include "support/made_programs.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Detail::FontProgram;

std::shared_ptr<const FontProgram> OpenWithMaps(const std::vector<MadeCharacterMap>& maps)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["cmap"] = MakeCharacterMaps(maps);
    return OpenProgram(JoinTrueType(tables));
}

MadeCompactFont MakeCidKeyedFont()
{
    MadeCompactFont font = MakeSampleCompactFont();
    font.isCidKeyed = true;
    return font;
}

TEST(FontProgramSearch, FindsCodePoints)
{
    const auto program = OpenWithMaps({{3, 1, {{'T', 1}, {0x25CF, 2}}}});
    EXPECT_EQ(program->FindGlyphByCodePoint(U'T'), 1u);
    EXPECT_EQ(program->FindGlyphByCodePoint(0x25CF), 2u);
    EXPECT_EQ(program->FindGlyphByCodePoint(U'U'), 0u);
    EXPECT_EQ(program->FindGlyphByCodePoint(0x10FFFF), 0u);
}

TEST(FontProgramSearch, FindsCodePointsBeyondSixteenBits)
{
    const auto program = FontProgram::Load("/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf");
    EXPECT_NE(program->FindGlyphByCodePoint(0x1D538), 0u);
    EXPECT_NE(program->FindGlyphByCodePoint(0x1D538), program->FindGlyphByCodePoint(0xD538));
}

TEST(FontProgramSearch, KeepsTheMapsOfAProgramApart)
{
    const auto program = OpenWithMaps({{1, 0, {{65, 1}}}, {3, 0, {{0xF041, 2}}}, {3, 1, {{0x391, 3}}}});
    EXPECT_TRUE(program->HasCharacterMap(1, 0));
    EXPECT_TRUE(program->HasCharacterMap(3, 0));
    EXPECT_TRUE(program->HasCharacterMap(3, 1));
    EXPECT_FALSE(program->HasCharacterMap(0, 3));
    EXPECT_FALSE(program->HasCharacterMap(3, 10));
    EXPECT_EQ(program->FindGlyphByCode(1, 0, 65), 1u);
    EXPECT_EQ(program->FindGlyphByCode(3, 0, 0xF041), 2u);
    EXPECT_EQ(program->FindGlyphByCode(3, 0, 65), 0u);
    EXPECT_EQ(program->FindGlyphByCode(3, 1, 0x391), 3u);
    EXPECT_EQ(program->FindGlyphByCode(3, 1, 65), 0u);
    EXPECT_EQ(program->FindGlyphByCode(3, 10, 65), 0u);
    // A search in one map leaves the others as they are.
    EXPECT_EQ(program->FindGlyphByCodePoint(0x391), 3u);
    EXPECT_EQ(program->FindGlyphByCode(1, 0, 65), 1u);
}

TEST(FontProgramSearch, OfTrueTypeHasBuiltInCodesInItsOnlyMap)
{
    EXPECT_EQ(OpenWithMaps({{1, 0, {{65, 2}}}})->FindGlyphByBuiltInCode(65), 2u);
    EXPECT_EQ(OpenWithMaps({{1, 0, {{65, 2}}}})->FindGlyphByBuiltInCode(66), 0u);
    for (const int range : {0x0000, 0xF000, 0xF100, 0xF200})
        EXPECT_EQ(OpenWithMaps({{3, 0, {{range + 65, 2}}}})->FindGlyphByBuiltInCode(65), 2u) << range;
    EXPECT_EQ(OpenWithMaps({{3, 0, {{0xF341, 2}}}})->FindGlyphByBuiltInCode(65), 0u);
    EXPECT_EQ(OpenWithMaps({{1, 0, {{65, 2}}}, {3, 0, {{65, 2}}}})->FindGlyphByBuiltInCode(65), 0u);
    EXPECT_EQ(OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()))->FindGlyphByBuiltInCode(65), 0u);
}

TEST(FontProgramSearch, OfCompactFormatAndType1HasBuiltInCodesInItsEncoding)
{
    for (const std::string& bytes :
         {MakeCompactFont(MakeSampleCompactFont()), MakeType1(MakeSampleType1())}) {
        const auto program = OpenProgram(bytes);
        EXPECT_EQ(program->FindGlyphByBuiltInCode(65), 1u);
        EXPECT_EQ(program->FindGlyphByBuiltInCode(66), 2u);
        EXPECT_EQ(program->FindGlyphByBuiltInCode(67), 0u);
    }
}

TEST(FontProgramSearch, FindsGlyphsByName)
{
    const auto compact = OpenProgram(MakeCompactFont(MakeSampleCompactFont()));
    EXPECT_EQ(compact->FindGlyphByName("square"), 1u);
    EXPECT_EQ(compact->FindGlyphByName("bar"), 2u);
    EXPECT_EQ(compact->FindGlyphByName("Bar"), 0u);
    EXPECT_EQ(compact->FindGlyphByName(""), 0u);
    EXPECT_EQ(compact->GetGlyphName(1), "square");
    const auto type1 = OpenProgram(MakeType1(MakeSampleType1()));
    EXPECT_EQ(type1->FindGlyphByName("A"), 2u);
    EXPECT_EQ(type1->GetGlyphName(1), "triangle");
    EXPECT_EQ(type1->GetGlyphName(3), "");
}

TEST(FontProgramSearch, FindsNamesOfTrueTypeInItsPostTable)
{
    const auto program =
        FontProgram::Load("/usr/share/fonts/truetype/liberation2/LiberationSerif-Regular.ttf");
    const std::uint32_t glyph = program->FindGlyphByName("Euro");
    EXPECT_NE(glyph, 0u);
    EXPECT_EQ(glyph, program->FindGlyphByCodePoint(0x20AC));
    EXPECT_EQ(program->GetGlyphName(glyph), "Euro");
}

TEST(FontProgramSearch, OfAProgramWithoutNamesFindsNone)
{
    for (const std::string& bytes :
         {JoinTrueType(MakeSampleTrueTypeTables()), MakeCompactFont(MakeCidKeyedFont())}) {
        const auto program = OpenProgram(bytes);
        EXPECT_EQ(program->GetGlyphName(1), "");
        EXPECT_EQ(program->FindGlyphByName("square"), 0u);
        EXPECT_EQ(program->FindGlyphByName(".notdef"), 0u);
    }
}

TEST(FontProgramSearch, FindsCodePointsByTheNamesOfGlyphs)
{
    const auto program = OpenProgram(MakeType1(MakeSampleType1()));
    EXPECT_EQ(program->FindGlyphByCodePoint(U'A'), 2u);
    EXPECT_EQ(program->FindGlyphByCodePoint(U'B'), 0u);
}

TEST(FontProgramSearch, TakesACidForTheGlyphIfTheProgramHasNoCids)
{
    const auto program = OpenProgram(MakeCompactFont(MakeSampleCompactFont()));
    EXPECT_FALSE(program->IsCidKeyed());
    EXPECT_EQ(program->FindGlyphByCid(2), 2u);
    EXPECT_EQ(program->FindGlyphByCid(3), 0u);
}

TEST(FontProgramSearch, FindsGlyphsByCid)
{
    const auto program = OpenProgram(MakeCompactFont(MakeCidKeyedFont()));
    EXPECT_TRUE(program->IsCidKeyed());
    EXPECT_EQ(program->GetGlyphCount(), 3u);
    EXPECT_EQ(program->FindGlyphByCid(40), 1u);
    EXPECT_EQ(program->FindGlyphByCid(70), 2u);
    EXPECT_EQ(program->FindGlyphByCid(0), 0u);
    EXPECT_EQ(program->FindGlyphByCid(1), 0u);
    EXPECT_EQ(program->FindGlyphByCid(41), 0u);
}

TEST(FontProgramSearch, NamesTheGlyphsOfACidKeyedProgramByTheirOrder)
{
    const auto program = OpenProgram(MakeCompactFont(MakeCidKeyedFont()));
    EXPECT_EQ(OutlineOf(*program, 1), "NonZero { M 10 20 L 510 20 L 510 520 L 10 520 Z }");
    EXPECT_EQ(OutlineOf(*program, 2), "NonZero { M 100 -200 L 150 -200 L 150 800 L 100 800 Z }");
    EXPECT_EQ(OutlineOf(*program, 40), "(no shape)");
    EXPECT_EQ(program->GetAdvance(2), 300.0);
    EXPECT_EQ(program->GetAdvance(70), 0.0);
}

TEST(FontProgramSearch, NamesTheGlyphsAlikeInAnOpenTypeWrapping)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables.erase("glyf");
    tables.erase("loca");
    tables["CFF "] = MakeCompactFont(MakeCidKeyedFont());
    tables["maxp"] = FontBytes().Add32(0x5000).Add16(3).text;
    const auto whole = OpenProgram(JoinTables("OTTO", tables));
    const auto bare = OpenProgram(JoinTables("OTTO", {{"CFF ", tables["CFF "]}}));
    for (const auto& program : {whole, bare}) {
        EXPECT_TRUE(program->IsCidKeyed());
        EXPECT_EQ(program->GetFormat(), FontProgram::Format::Cff);
        EXPECT_EQ(program->GetGlyphCount(), 3u);
        EXPECT_EQ(program->FindGlyphByCid(70), 2u);
        EXPECT_EQ(OutlineOf(*program, 2), "NonZero { M 100 -200 L 150 -200 L 150 800 L 100 800 Z }");
    }
    // The wrapping has a table of advances of its own.
    EXPECT_EQ(whole->GetAdvance(2), 700.0);
    EXPECT_EQ(bare->GetAdvance(2), 300.0);
}

} // namespace
} // namespace HarrowSupport::Testing
