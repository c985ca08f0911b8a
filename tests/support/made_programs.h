#pragma once

#include <memory>
#include <sstream>
#include <string>

#include "orv_font/font_program.h"
#include "support/compact_font_maker.h"
#include "support/true_type_maker.h"
#include "support/type1_maker.h"

#include <plexa/compound.h>

/// Small font programs whose every number is known, for tests of what reads them.
namespace HarrowSupport::Testing
{

inline std::shared_ptr<const OrvFont::Detail::FontProgram> OpenProgram(const std::string& bytes)
{
    return std::make_shared<const OrvFont::Detail::FontProgram>(std::make_shared<const std::string>(bytes));
}

/// The outline of a glyph as text, `(no shape)` without one.
inline std::string OutlineOf(const OrvFont::Detail::FontProgram& program, std::uint32_t glyph,
                             const OrvFont::Font::Point& origin = {})
{
    std::ostringstream text;
    text << program.MakeOutline(glyph, origin);
    return text.str();
}

/// Glyph 1 is a triangle, 2 a circle of quadratic curves alone, 3 both side by side, 4 empty.
inline FontTables MakeSampleTrueTypeTables()
{
    const MadeTrueTypeGlyph notDefined{500, {{{0, 0}, {500, 0}, {500, 700}}}, {}};
    const MadeTrueTypeGlyph triangle{600, {{{0, 0}, {400, 0}, {200, 300}}}, {}};
    const MadeTrueTypeGlyph circle{
        700, {{{0, 0, false}, {600, 0, false}, {600, 600, false}, {0, 600, false}}}, {}};
    const MadeTrueTypeGlyph both{1300, {}, {{1, 0, 0}, {2, 600, 50}}};
    const MadeTrueTypeGlyph empty{250, {}, {}};
    return MakeTrueTypeTables({notDefined, triangle, circle, both, empty});
}

/// Glyph 1 is `square`, 2 `bar`; the codes 65 and 66 in its own encoding.
inline MadeCompactFont MakeSampleCompactFont()
{
    MadeCompactFont font;
    font.glyphs = {{".notdef", 0, 500, 0, 0, 500, 700},
                   {"square", 40, 600, 10, 20, 510, 520},
                   {"bar", 70, 300, 100, -200, 150, 800}};
    return font;
}

/// Glyph 1 is `triangle`, 2 `A`; the codes 65 and 66 in its own encoding.
inline MadeType1Font MakeSampleType1()
{
    MadeType1Font font;
    font.glyphs = {
        {".notdef", 500, 0, 0, 0, 0}, {"triangle", 600, 50, 10, 450, 310}, {"A", 722, 15, 0, 706, 674}};
    return font;
}

} // namespace HarrowSupport::Testing
