#pragma once

#include <cstdint>

#include "orv_font/font_program.h"
#include "pdf/fonts/simple_encoding.h"

namespace OrvPdf
{

/// What decides which glyph of its program a code of a simple font shows.
struct SimpleGlyphRules
{
    SimpleEncoding encoding;
    /// The descriptor's flag: the font has glyphs of its own beside the standard Latin ones (ISO 32000-1,
    /// 9.8.2).
    bool isSymbolic = false;
    /// Whether names such as `a12` are those of ZapfDingbats.
    bool isDingbats = false;

    friend bool operator==(const SimpleGlyphRules& left, const SimpleGlyphRules& right)
    {
        return left.isSymbolic == right.isSymbolic && left.isDingbats == right.isDingbats &&
               left.encoding == right.encoding;
    }
};

/// The glyph of a code in the font's own program: by name in Type 1 and CFF programs (ISO 32000-1, 9.6.6.2),
/// in TrueType programs as 9.6.6.4 says. Where these rules give none, those that other readers go by: what
/// the name means in Unicode, and the program's own map. Zero if there is none.
std::uint32_t FindEmbeddedGlyph(const OrvFont::Detail::FontProgram& program, const SimpleGlyphRules& rules,
                                std::uint8_t code);

/// The glyph of a code in a program that stands in for the font's own: by what the name means. Zero if there
/// is none.
std::uint32_t FindReplacementGlyph(const OrvFont::Detail::FontProgram& program, const SimpleGlyphRules& rules,
                                   std::uint8_t code);

} // namespace OrvPdf
