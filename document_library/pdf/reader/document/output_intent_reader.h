#pragma once

#include <boost/optional.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_color/output_intent.h>

#include "pdf/reader/document/error_list.h"

namespace OrvPdf
{

class SourceFile;

/// The catalogue's output intent (ISO 32000-1, 14.11.5): of several the first of subtype `GTS_PDFX`,
/// otherwise the first. A malformed profile is left out of it. Needs an access to the file.
boost::optional<OrvColor::OutputIntent> ReadOutputIntent(QPDFObjectHandle catalogue, const SourceFile& file,
                                                         ErrorList& errors);

} // namespace OrvPdf
