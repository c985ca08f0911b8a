#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

/// Makes the trailer of a file that is rewritten one that the PDF library can write and other programs can
/// read. Returns the texts of active errors.
std::vector<std::string> MendTrailer(QPDFObjectHandle trailer);

} // namespace OrvPdf
