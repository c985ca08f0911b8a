#pragma once

#include <boost/optional.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_color/output_intent.h>

namespace OrvPdf
{

class ObjectMaker;
class PdfDocumentSource;

/// Writes the output intent into the catalogue (ISO 32000-1, 14.11.5), in the place of the one that a reader
/// of the file finds there. If that is equal, nothing is touched; others stay in any case. `source` is the
/// file that the document was read from, or null.
void WriteOutputIntent(const boost::optional<OrvColor::OutputIntent>& intent, const PdfDocumentSource* source,
                       QPDFObjectHandle catalogue, ObjectMaker& maker);

} // namespace OrvPdf
