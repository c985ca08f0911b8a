#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/pdf_links.h>

#include "pdf/reader/document/error_list.h"

namespace OrvPdf
{

/// The catalogue's `OrvLinks`, in order of the keys: file specifications whose target is named by a key.
/// Entries that refer to no dictionary of its own are left out. Needs an access to the file.
std::vector<OrvDoc::NormalizedPDFLink> ReadNormalizedLinks(QPDFObjectHandle catalogue, ErrorList& errors);

} // namespace OrvPdf
