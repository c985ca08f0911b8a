#include <set>
#include <thread>

#include <gtest/gtest.h>

#include <orv_font/font.h>

#include "orv_font/font_program.h"
#include "support/made_programs.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Detail::FontProgram;

constexpr const char* serifFile = "/usr/share/fonts/truetype/liberation2/LiberationSerif-Regular.ttf";

TEST(FontProgramOutlines, HaveTheLinesOfTheGlyph)
{
    const auto program = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()));
    EXPECT_EQ(OutlineOf(*program, 1), "NonZero { M 0 0 L 400 0 L 200 300 Z }");
}

TEST(FontProgramOutlines, OfQuadraticCurvesAreCubicOnesOfTheSameCourse)
{
    const auto program = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()));
    // The points between two that are off the curve are in the middle; the inner ones of a cubic curve are
    // two thirds of the way to the one of the quadratic curve.
    EXPECT_EQ(OutlineOf(*program, 2), "NonZero { M 0 300 C 0 100 100 0 300 0 C 500 0 600 100 600 300 "
                                      "C 600 500 500 600 300 600 C 100 600 0 500 0 300 Z }");
}

TEST(FontProgramOutlines, OfAComposedGlyphAreThoseOfItsParts)
{
    const auto program = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()));
    EXPECT_EQ(OutlineOf(*program, 3), "NonZero { M 0 0 L 400 0 L 200 300 Z M 600 350 C 600 150 700 50 900 50 "
                                      "C 1100 50 1200 150 1200 350 C 1200 550 1100 650 900 650 "
                                      "C 700 650 600 550 600 350 Z }");
}

TEST(FontProgramOutlines, AreInThousandthsWhateverTheUnit)
{
    const MadeTrueTypeGlyph triangle{2048, {{{0, 0}, {2048, 0}, {1024, 1}}}, {}};
    const auto program = OpenProgram(JoinTrueType(MakeTrueTypeTables({triangle, triangle}, 2048)));
    EXPECT_EQ(OutlineOf(*program, 1), "NonZero { M 0 0 L 1000 0 L 500 0.48828125 Z }");
}

TEST(FontProgramOutlines, StandAroundTheOrigin)
{
    const auto program = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()));
    EXPECT_EQ(OutlineOf(*program, 1, {300.0, 880.0}), "NonZero { M -300 -880 L 100 -880 L -100 -580 Z }");
}

TEST(FontProgramOutlines, OfCompactFormatAreDrawn)
{
    const auto program = OpenProgram(MakeCompactFont(MakeSampleCompactFont()));
    EXPECT_EQ(OutlineOf(*program, 1), "NonZero { M 10 20 L 510 20 L 510 520 L 10 520 Z }");
    EXPECT_EQ(OutlineOf(*program, 2), "NonZero { M 100 -200 L 150 -200 L 150 800 L 100 800 Z }");
}

TEST(FontProgramOutlines, OfType1AreDrawn)
{
    for (const std::string& bytes : {MakeType1(MakeSampleType1()), MakeSegmentedType1(MakeSampleType1())}) {
        const auto program = OpenProgram(bytes);
        EXPECT_EQ(OutlineOf(*program, 1), "NonZero { M 50 10 L 450 10 L 50 310 Z }");
    }
}

TEST(FontProgramOutlines, OfType1FollowItsMatrix)
{
    MadeType1Font font = MakeSampleType1();
    font.matrix = "0.0005 0 0 0.0005 0 0";
    EXPECT_EQ(OutlineOf(*OpenProgram(MakeType1(font)), 1), "NonZero { M 25 5 L 225 5 L 25 155 Z }");
}

TEST(FontProgramOutlines, AreNoneForAnEmptyGlyphAndForOneThatIsNotThere)
{
    const auto program = OpenProgram(JoinTrueType(MakeSampleTrueTypeTables()));
    EXPECT_EQ(program->MakeOutline(4, {}), nullptr);
    EXPECT_EQ(program->MakeOutline(5, {}), nullptr);
    EXPECT_EQ(program->MakeOutline(0xFFFFFFFF, {}), nullptr);
}

TEST(FontProgramOutlines, StayWithoutTheTablesThatProducersOfPdfLeaveOut)
{
    const auto whole = FontProgram::Load(serifFile);
    FontTables tables = SplitTables(*whole->GetBytes());
    for (const char* tag : {"name", "OS/2", "post", "cmap", "GPOS", "GSUB", "GDEF", "gasp", "kern", "DSIG"})
        tables.erase(tag);
    const auto bare = OpenProgram(JoinTrueType(tables));
    ASSERT_EQ(bare->GetGlyphCount(), whole->GetGlyphCount());
    const std::uint32_t glyph = whole->FindGlyphByCodePoint(U'&');
    ASSERT_NE(glyph, 0u);
    EXPECT_EQ(OutlineOf(*bare, glyph), OutlineOf(*whole, glyph));
    EXPECT_EQ(bare->GetAdvance(glyph), whole->GetAdvance(glyph));
    EXPECT_EQ(bare->FindGlyphByCodePoint(U'&'), 0u);
}

TEST(FontProgramOutlines, DoNotDependOnHints)
{
    const auto whole = FontProgram::Load(serifFile);
    FontTables tables = SplitTables(*whole->GetBytes());
    for (const char* tag : {"fpgm", "prep", "cvt "})
        tables.erase(tag);
    const auto unhinted = OpenProgram(JoinTrueType(tables));
    for (const char32_t letter : U"AQag&8") {
        const std::uint32_t glyph = whole->FindGlyphByCodePoint(letter);
        EXPECT_EQ(OutlineOf(*unhinted, glyph), OutlineOf(*whole, glyph));
    }
}

TEST(FontProgramOutlines, OfAKnownLetterAreWhereTheFontHasThem)
{
    // `l` of Liberation Sans in its table `glyf`: (138, 0), (138, 1484), (318, 1484), (318, 0) of 2048.
    const auto program =
        FontProgram::Load("/usr/share/fonts/truetype/liberation2/LiberationSans-Regular.ttf");
    EXPECT_EQ(
        OutlineOf(*program, program->FindGlyphByCodePoint(U'l')),
        "NonZero { M 67.3828125 0 L 67.3828125 724.609375 L 155.2734375 724.609375 L 155.2734375 0 Z }");
}

TEST(FontProgramOutlines, AreTheSameForAllThreadsThatAsk)
{
    const auto program = FontProgram::Load(serifFile);
    constexpr std::uint32_t glyphCount = 300;
    std::vector<std::vector<std::string>> found(4);
    std::vector<std::thread> threads;
    for (auto& outlines : found) {
        threads.emplace_back([&outlines, &program] {
            for (std::uint32_t glyph = 0; glyph < glyphCount; ++glyph) {
                outlines.push_back(OutlineOf(*program, glyph) + ' ' +
                                   std::to_string(program->GetAdvance(glyph)) + ' ' +
                                   std::to_string(program->FindGlyphByCodePoint(glyph)) + ' ' +
                                   std::to_string(program->FindGlyphByName(program->GetGlyphName(glyph))));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const auto alone = FontProgram::Load(serifFile);
    for (const auto& outlines : found) {
        EXPECT_EQ(outlines, found.front());
        EXPECT_EQ(outlines[70].substr(0, outlines[70].find('}') + 1), OutlineOf(*alone, 70));
    }
    EXPECT_GT(std::set<std::string>(found[0].begin(), found[0].end()).size(), glyphCount / 2);
}

} // namespace
} // namespace HarrowSupport::Testing
