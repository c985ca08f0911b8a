#pragma once

#include "support/document_makers.h"

#include <orv_doc/text.h>
#include <orv_font/font.h>
#include <plexa/compound.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <vector>

/// Fonts that are made up for a test, and texts in them, in a line each.
namespace HarrowSupport::Testing
{

using FontPointer = std::shared_ptr<const OrvFont::Font>;
using Outline = std::shared_ptr<const Plexa::Compound>;
using CharacterPlace = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

/// A rectangle that is as wide as the glyph's number, on the base line and 700 high; nothing for the glyph of
/// a space.
Outline OutlineByGlyph(const OrvFont::Character& character);

/// All that a font of a test is.
struct FontPlan
{
    OrvFont::Font::Names names{"Test-Regular", "Test", "Regular"};
    Box box{0.0, -250.0, 1000.0, 1000.0};
    OrvFont::WritingMode mode = OrvFont::WritingMode::Horizontal;
    /// Fonts of the same program say that they have the same outlines and advances; those of program 0 know
    /// of no other.
    int program = 1;
    std::function<Outline(const OrvFont::Character&)> outline = OutlineByGlyph;
    std::function<double(const OrvFont::Character&)> advance = [](const OrvFont::Character&) {
        return 500.0;
    };
    /// A shown byte is a code, and its glyph so much further on.
    std::uint32_t glyphShift = 0;
    /// Counts the outlines that were asked of the program.
    std::shared_ptr<std::atomic<int>> outlinesMade = std::make_shared<std::atomic<int>>(0);
};

/// It has a character for each code point up to U+FFFE, whose code and glyph are the code point.
FontPointer MakeFont(const FontPlan& plan = {});

/// A character of each byte, as code of one byte and as glyph.
std::vector<OrvDoc::TextCharacter> Characters(const std::string& bytes);
/// A text of 12 points.
std::unique_ptr<OrvDoc::Text> TextOf(const std::string& bytes, FontPointer font = MakeFont(),
                                     double size = 12.0);
/// The same of what operators show, the bytes without steps.
std::unique_ptr<OrvDoc::Text> ShownTextOf(const std::string& bytes, FontPointer font = MakeFont());
/// The same with the characters at these places.
std::unique_ptr<OrvDoc::Text> TextAt(const std::string& bytes, std::vector<CharacterPlace> places,
                                     FontPointer font = MakeFont());

} // namespace HarrowSupport::Testing
