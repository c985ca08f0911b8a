#pragma once

#include <orv_sys/pdf_object.h>

#include "pdf/reader/lexer/content_operand.h"

namespace OrvPdf
{

/// An operand of a content stream as a value of its own, numbers with the text that they have there. Throws
/// `std::length_error` for one that is too large.
OrvSys::PdfObject ConvertOperand(const Operand& operand);

} // namespace OrvPdf
