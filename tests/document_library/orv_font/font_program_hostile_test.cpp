// Font programs whose bytes lie. Each gives an exception or a program some of whose glyphs are missing.

#include <algorithm>
#include <chrono>
#include <random>
#include <stdexcept>

#include <gtest/gtest.h>

#include "orv_font/font_program.h"
#include "support/made_programs.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvFont::Detail::FontProgram;

/// Asks everything that can be asked. Whether there is a program at all.
bool UseAll(const std::string& bytes)
{
    try {
        const auto program = OpenProgram(bytes);
        const std::uint32_t count = std::min(program->GetGlyphCount(), 50u);
        for (std::uint32_t glyph = 0; glyph <= count; ++glyph) {
            program->MakeOutline(glyph, {});
            program->GetAdvance(glyph);
            program->GetVerticalAdvance(glyph);
            program->FindGlyphByName(program->GetGlyphName(glyph));
            program->FindGlyphByCid(glyph);
            program->FindGlyphByCodePoint(32 + glyph);
            program->FindGlyphByCode(3, 1, 32 + glyph);
            program->FindGlyphByCode(1, 0, 32 + glyph);
            program->FindGlyphByBuiltInCode(static_cast<std::uint8_t>(32 + glyph));
        }
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

std::vector<std::string> MakeSamples()
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["cmap"] = MakeCharacterMaps({{1, 0, {{65, 1}}}, {3, 1, {{66, 2}, {67, 3}}}});
    tables["name"] = MakeNameTable({{1, "Made"}, {2, "Bold"}, {6, "Made-Bold"}});
    MadeCompactFont cidKeyed = MakeSampleCompactFont();
    cidKeyed.isCidKeyed = true;
    return {JoinTrueType(tables), MakeCompactFont(MakeSampleCompactFont()), MakeCompactFont(cidKeyed),
            MakeType1(MakeSampleType1()), MakeSegmentedType1(MakeSampleType1())};
}

TEST(FontProgramOfHostileBytes, IsRefusedOrUsableWhereverItEnds)
{
    for (const std::string& sample : MakeSamples()) {
        ASSERT_TRUE(UseAll(sample));
        int refused = 0;
        for (std::size_t size = 0; size < sample.size(); size += 1 + sample.size() / 400)
            refused += UseAll(sample.substr(0, size)) ? 0 : 1;
        EXPECT_GT(refused, 0);
    }
}

TEST(FontProgramOfHostileBytes, IsRefusedOrUsableWhateverBytesAreWrong)
{
    constexpr unsigned seed = 20240605;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    for (const std::string& sample : MakeSamples()) {
        int usable = 0;
        for (int round = 0; round < 400; ++round) {
            std::string bytes = sample;
            for (std::size_t change = 1 + random() % 4; change > 0; --change)
                bytes[random() % bytes.size()] = static_cast<char>(random());
            usable += UseAll(bytes) ? 1 : 0;
        }
        EXPECT_GT(usable, 0);
    }
}

TEST(FontProgramOfHostileBytes, LacksAGlyphThatIsPartOfItself)
{
    const MadeTrueTypeGlyph triangle{600, {{{0, 0}, {400, 0}, {200, 300}}}, {}};
    const MadeTrueTypeGlyph itself{600, {}, {{1, 0, 0}}};
    const MadeTrueTypeGlyph oneOfTwo{600, {}, {{3, 0, 0}}};
    const MadeTrueTypeGlyph otherOfTwo{600, {}, {{2, 0, 0}}};
    const auto program =
        OpenProgram(JoinTrueType(MakeTrueTypeTables({triangle, itself, oneOfTwo, otherOfTwo})));
    EXPECT_NE(program->MakeOutline(0, {}), nullptr);
    EXPECT_EQ(program->MakeOutline(1, {}), nullptr);
    EXPECT_EQ(program->MakeOutline(2, {}), nullptr);
    EXPECT_EQ(program->GetAdvance(1), 600.0);
}

TEST(FontProgramOfHostileBytes, DoesNotDrawPartsOfPartsForever)
{
    // Each glyph is made of the next one twenty times: without a bound, 20 to the power of 30 parts.
    std::vector<MadeTrueTypeGlyph> glyphs;
    for (int glyph = 1; glyph <= 30; ++glyph)
        glyphs.push_back({600, {}, std::vector<MadeComponent>(20, MadeComponent{glyph, 1, 1})});
    glyphs.push_back({600, {}, {}});
    const auto program = OpenProgram(JoinTrueType(MakeTrueTypeTables(glyphs)));
    EXPECT_EQ(program->MakeOutline(0, {}), nullptr);
}

TEST(FontProgramOfHostileBytes, DoesNotRunSubroutinesOfSubroutinesForever)
{
    // Each calls the next one 200 times, eight levels deep.
    std::vector<std::string> subroutines;
    constexpr int bias = 107;
    for (int next = 1; next <= 8; ++next) {
        std::string calls;
        for (int call = 0; call < 200; ++call)
            calls += FontBytes().Add8(28).Add16(next - bias).Add8(10).text;
        subroutines.push_back(calls + '\x0B');
    }
    subroutines.push_back("\x0B");
    const std::string callFirst = FontBytes().Add8(28).Add16(-bias).Add8(10).Add8(14).text;
    const MadeCompactFont font = MakeSampleCompactFont();
    const std::string bytes = MakeCompactFont(
        font, {MakeCompactOutline(font.glyphs[0]), callFirst, MakeCompactOutline(font.glyphs[2])},
        subroutines);
    const auto begin = std::chrono::steady_clock::now();
    const auto program = OpenProgram(bytes);
    EXPECT_EQ(program->MakeOutline(1, {}), nullptr);
    EXPECT_NE(program->MakeOutline(2, {}), nullptr);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30));
}

TEST(FontProgramOfHostileBytes, DoesNotTakeMemoryForGlyphsThatAreNotThere)
{
    FontTables tables = MakeSampleTrueTypeTables();
    tables["maxp"] = FontBytes().Add32(0x10000).Add16(0xFFFF).AddText(tables["maxp"].substr(6)).text;
    const auto program = OpenProgram(JoinTrueType(tables));
    EXPECT_NE(program->MakeOutline(1, {}), nullptr);
    EXPECT_EQ(program->MakeOutline(60000, {}), nullptr);
}

} // namespace
} // namespace HarrowSupport::Testing
