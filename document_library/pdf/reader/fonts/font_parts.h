#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_font/font.h>

#include "pdf/fonts/drawing_program.h"
#include "pdf/fonts/font_origin.h"
#include "pdf/fonts/font_stream.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

/// What is wrong with one font, in words that name it.
class FontProblems
{
public:
    FontProblems(std::string givenFont, std::vector<std::string>& givenTexts)
        : font(std::move(givenFont)), texts(givenTexts)
    {}

    const std::string& GetFont() const { return font; }
    /// "the font Foo: Widths: it is no array".
    void Add(const std::string& problem) { texts.push_back("the font " + font + ": " + problem); }
    /// One that names the font already.
    void AddWhole(std::string problem) { texts.push_back(std::move(problem)); }

private:
    std::string font;
    std::vector<std::string>& texts;
};

/// What all kinds of fonts say of themselves, and where. Needs an access to the file.
struct FontParts
{
    std::shared_ptr<const SourceFile> file;
    /// The font's own dictionary, which names its encoding.
    QPDFObjectHandle dictionary;
    /// What describes its glyphs: the CIDFont of a composite font, else `dictionary`.
    QPDFObjectHandle glyphs;
    /// A null object if there is none.
    QPDFObjectHandle descriptor;
    /// Of `BaseFont`, tag of the subset included; empty if it is missing.
    std::string baseFont;
    std::uint32_t flags = 0;
};

enum FontFlag : std::uint32_t
{
    FixedPitch = 1U << 0U,
    Serif = 1U << 1U,
    Symbolic = 1U << 2U,
    Nonsymbolic = 1U << 5U,
    Italic = 1U << 6U,
    ForceBold = 1U << 18U
};

FontParts GatherFontParts(const std::shared_ptr<const SourceFile>& file, QPDFObjectHandle dictionary,
                          QPDFObjectHandle glyphs);

/// The embedded program of a descriptor (ISO 32000-1, 9.9); a null object if there is none.
QPDFObjectHandle FindProgramStream(QPDFObjectHandle descriptor);

/// The program that draws the font. A missing one is told.
std::unique_ptr<const DrawingProgram> MakeDrawingProgram(const FontParts& parts, FontProblems& problems);

/// Names and box of a font with outlines. What the dictionaries do not say is asked of the program.
OrvFont::Font::Names ReadFontNames(const FontParts& parts, const DrawingProgram& program);
OrvFont::Font::Rectangle ReadFontBox(const FontParts& parts, const DrawingProgram& program,
                                     FontProblems& problems);

/// Names as the dictionaries say them; empty where they say nothing.
OrvFont::Font::Names ReadStatedNames(const FontParts& parts);

/// A rectangle of four numbers as they stand. None, with a problem, if it is malformed; none if it is
/// missing.
boost::optional<OrvFont::Font::Rectangle> ReadStatedBox(QPDFObjectHandle array, FontProblems& problems);

/// Null if it is no stream. With a name, what reading finds wrong is told to the document as well.
std::unique_ptr<const FontStream> MakeFontStream(const std::shared_ptr<const SourceFile>& file,
                                                 QPDFObjectHandle stream, std::string name = {});

std::shared_ptr<const FontOrigin> MakeFontOrigin(const FontParts& parts);

/// False if it holds no number.
bool ReadNumber(QPDFObjectHandle object, double& value);

/// The number at a key; `otherwise` if it is missing or, with a problem, no number.
double ReadNumberAt(QPDFObjectHandle dictionary, const char* key, double otherwise, FontProblems& problems);

} // namespace OrvPdf
