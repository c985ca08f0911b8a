#pragma once

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

/// Whether the PDF library writes the number sign of a name as it is, so that it reads as the beginning of an
/// escape (ISO 32000-1, 7.3.5).
bool LosesNumberSigns();

/// Escapes the number signs of the names and keys that stand directly in an array, dictionary or stream's
/// dictionary. For a library that loses them, and once an object.
void EscapeNumberSigns(QPDFObjectHandle& container);

} // namespace OrvPdf
