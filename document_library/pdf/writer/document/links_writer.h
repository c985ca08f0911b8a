#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/pdf_links.h>

namespace OrvPdf
{

/// Points the file specifications (ISO 32000-1, 7.11.3) of links that were resolved at their files, and takes
/// them out of the catalogue's `OrvLinks`.
void WriteResolvedLinks(const std::vector<OrvDoc::NormalizedPDFLink>& links, QPDFObjectHandle catalogue);

} // namespace OrvPdf
