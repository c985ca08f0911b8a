#pragma once

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/layers.h>

#include "pdf/reader/document/error_list.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// Reads the catalogue's optional content properties (ISO 32000-1, 8.11.4): the layers, their processing
/// steps (ISO 19593-1), and the default configuration with its order, what is seen, and what prints. The
/// document's resources learn the layers by object number. Needs an access to the file.
void ReadLayers(QPDFObjectHandle catalogue, DocumentResources& document, OrvDoc::Layers& layers,
                ErrorList& errors);

} // namespace OrvPdf
