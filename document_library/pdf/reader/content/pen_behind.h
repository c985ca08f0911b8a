#pragma once

#include <orv_doc/text.h>

#include "orv_doc/text_pen.h"

namespace OrvPdf
{

/// Where the pen stands behind all that a text shows. The text must have been read.
OrvDoc::Detail::TextPen GetPenBehind(const OrvDoc::Text& text);

} // namespace OrvPdf
