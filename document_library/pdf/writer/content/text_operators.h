#pragma once

#include <string>

#include <orv_doc/shown_text.h>
#include <orv_doc/text.h>

#include "pdf/text_line.h"
#include "pdf/writer/content/text_parameters.h"

namespace OrvPdf
{

/// The bytes of a character's code.
std::string CodeText(const OrvFont::Character& character);

/// What a text shows: as it was read, or made of the codes and the transformations of its characters.
OrvDoc::ShownText GetShownText(const OrvDoc::Text& text);

/// Whether what is shown can be written: all numbers are finite, and lines can be told from the text's
/// matrix.
bool CanShow(const OrvDoc::ShownText& shown, const TextMatrix& matrix);

/// How a text is told from what stands before it, where that must be said.
struct TextMark
{
    bool isNeeded = false;
    /// The two that the matrix is the product of, if that is to be said; null otherwise.
    const TextMatrix* ownMatrix = nullptr;
    const TextMatrix* objectMatrix = nullptr;
};

/// Appends the operators that position and show the text (ISO 32000-1, 9.4.2 and 9.4.3). Reading them back
/// gives the same steps, bit by bit. `parameters` are those in force; scale and rise are what they are at the
/// end.
void AppendShownText(std::string& out, const OrvDoc::ShownText& shown, const TextMatrix& matrix,
                     TextParameters& parameters, const TextMark& mark);

} // namespace OrvPdf
