#pragma once

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvDoc
{
class Document;
}

namespace OrvPdf
{

class LayerObjects;
class PdfDocumentSource;

/// Writes a document's layers into the catalogue's `OCProperties` (ISO 32000-1, 8.11.4): the list, and of the
/// default configuration the order, what is seen, and what prints. What a reader of the file would find there
/// already stays as it stands, and so does everything that the model doesn't know. `source` is the file that
/// the document was read from, or null.
void WriteLayers(const OrvDoc::Document& document, const PdfDocumentSource* source,
                 QPDFObjectHandle catalogue, LayerObjects& objects);

} // namespace OrvPdf
