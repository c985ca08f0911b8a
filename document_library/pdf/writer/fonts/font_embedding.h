#pragma once

#include <string>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/writer/fonts/font_subset.h"

namespace OrvFont
{
class Font;
} // namespace OrvFont

namespace OrvFont::Detail
{
class FontProgram;
} // namespace OrvFont::Detail

namespace OrvPdf
{

class ObjectMaker;

/// A font program as a file holds it (ISO 32000-1, 9.9).
struct EmbeddedProgram
{
    std::string bytes;
    /// Of the font descriptor.
    const char* key = "/FontFile2";
    /// Of the stream; null if it has none.
    const char* subtype = nullptr;
    /// Of the font that the composite one draws with.
    const char* fontSubtype = "/CIDFontType2";
    /// Whether glyphs were left out.
    bool isSubset = true;
    /// The lowest version of PDF that knows such programs, and what is said of them.
    const char* version = "1.5";
};

/// What came of writing a font.
struct EmbeddingOutcome
{
    /// Why the program could not be embedded; empty if it is.
    std::string problem;
    /// The lowest version of PDF that knows all that was written.
    std::string version;
};

/// What has to be embedded for the glyphs: a part of the program, or all of a bare CFF program, out of which
/// nothing is taken. Glyphs are chosen by their ids.
/// @throws std::runtime_error that says why if PDF knows no way to embed the program like that
EmbeddedProgram MakeEmbeddedProgram(const OrvFont::Detail::FontProgram& program, const GlyphSet& glyphs);

/// Fills the dictionary of a composite font (ISO 32000-1, 9.7) whose codes, of two bytes each, are the glyph
/// ids of the program. The font's own names, box and advances are written, so that they are read back as they
/// are; the program tells the rest. Code points of the program make the glyphs text again.
///
/// Glyphs that the program does not have draw nothing. A font whose program cannot be embedded is written
/// without it, for readers that have the font themselves. Equal arguments give equal objects.
EmbeddingOutcome WriteEmbeddedFont(QPDFObjectHandle dictionary, const OrvFont::Font& font,
                                   const OrvFont::Detail::FontProgram& program, GlyphSet glyphs,
                                   ObjectMaker& maker);

} // namespace OrvPdf
