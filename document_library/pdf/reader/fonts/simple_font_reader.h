#pragma once

#include <memory>

#include <orv_font/font.h>

#include "pdf/fonts/simple_encoding.h"
#include "pdf/fonts/simple_widths.h"
#include "pdf/reader/fonts/font_parts.h"

namespace OrvPdf
{

/// A Type 1, MMType1 or TrueType font (ISO 32000-1, 9.6). Needs an access to the file.
std::shared_ptr<const OrvFont::Font> ReadSimpleFont(const FontParts& parts, FontProblems& problems);

/// `Encoding` as it stands, without what a missing one means.
SimpleEncoding ReadSimpleEncoding(QPDFObjectHandle encoding, FontProblems& problems);

/// `FirstChar`, `Widths` and, of the descriptor, `MissingWidth`.
SimpleWidths ReadSimpleWidths(const FontParts& parts, FontProblems& problems);

} // namespace OrvPdf
