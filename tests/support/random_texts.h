#pragma once

#include <memory>
#include <random>

#include <orv_doc/document.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>
#include <orv_font/font.h>

/// Random texts in the library's own fonts.
namespace HarrowSupport::Testing
{

/// One of some fonts of the document's manager.
std::shared_ptr<const OrvFont::Font> RandomFont(OrvDoc::Document& document, std::mt19937& random);

/// A text in that font, of any size and spacings and at any place, without paint: in Latin, Greek, Cyrillic,
/// Arabic or Chinese, as far as the font has the characters. Some have their characters placed one by one:
/// kerned, raised, on several lines, or each under a matrix of its own.
std::unique_ptr<OrvDoc::Text> RandomText(std::shared_ptr<const OrvFont::Font> font, std::mt19937& random);

/// A text group with one to three texts; those of some clip, all others are painted in any way.
std::unique_ptr<OrvDoc::TextGroup> RandomTextGroup(OrvDoc::Document& document, std::mt19937& random);

} // namespace HarrowSupport::Testing
