#pragma once

#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <orv_font/font.h>
#include <plexa/compound.h>

#include "orv_font/font_program.h"
#include "orv_font/program_font.h"
#include "pdf/writer/fonts/font_subset.h"
#include "support/file_bytes.h"
#include "support/made_programs.h"
#include "support/open_type_maker.h"

namespace OrvPdf::Testing
{

using OrvFont::Detail::FontProgram;
using OrvFont::Detail::MakeProgramFont;

/// A font program of the machine: by TrueType outlines, with Latin, Greek and Cyrillic letters.
inline std::shared_ptr<const FontProgram> LoadSerif()
{
    return FontProgram::Load("/usr/share/fonts/truetype/liberation2/LiberationSerif-Regular.ttf");
}

inline std::shared_ptr<const FontProgram> Opened(std::string bytes)
{
    return std::make_shared<FontProgram>(std::make_shared<const std::string>(std::move(bytes)));
}

/// A font of 5 glyphs: `.notdef`, A, B, C and a ligature without a code point. B has hints, and an edge on
/// half a unit.
inline HarrowSupport::Testing::MadeFont ThreeLetters()
{
    HarrowSupport::Testing::MadeFont font;
    font.glyphs = {{0, 500, 50, 0, 450, 700, false},
                   {u'A', 600, 10, 0, 590, 710, false},
                   {u'B', 650, 20, -5, 630, 720, true},
                   {u'C', 700, 30, 0, 670, 730, false},
                   {0, 900, 40, 0, 860, 740, false}};
    return font;
}

/// A part of a program, opened.
inline std::shared_ptr<const FontProgram> OpenedSubset(const FontProgram& program, const GlyphSet& glyphs)
{
    return Opened(MakeFontSubset(*program.GetBytes(), program.GetFace(), glyphs));
}

inline const OrvFont::Font::Point noShift{0.0, 0.0};

/// Whether a glyph is drawn alike and advances alike in both.
inline ::testing::AssertionResult IsSameGlyph(const FontProgram& left, const FontProgram& right,
                                              std::uint32_t glyph)
{
    const auto leftOutline = left.MakeOutline(glyph, noShift);
    const auto rightOutline = right.MakeOutline(glyph, noShift);
    if (!leftOutline != !rightOutline || (leftOutline && *leftOutline != *rightOutline))
        return ::testing::AssertionFailure()
               << "glyph " << glyph << ": " << leftOutline << " against " << rightOutline;
    if (left.GetAdvance(glyph) != right.GetAdvance(glyph))
        return ::testing::AssertionFailure() << "glyph " << glyph << ": " << left.GetAdvance(glyph)
                                             << " against " << right.GetAdvance(glyph);
    return ::testing::AssertionSuccess();
}

/// The glyphs of a text.
inline GlyphSet GlyphsOf(const FontProgram& program, const std::u32string& text)
{
    GlyphSet glyphs;
    for (const char32_t codePoint : text)
        glyphs.insert(program.FindGlyphByCodePoint(codePoint));
    return glyphs;
}

} // namespace OrvPdf::Testing
