#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/layer_configuration.h>
#include <orv_doc/layers.h>

#include "pdf/reader/document/error_list.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// Reads the tree in which a configuration shows its layers (ISO 32000-1, table 101, `Order`): an array
/// behind a layer holds its sublayers; one that begins with a text string is a labelled group; any other
/// array adds what it holds to the level where it stands. Needs an access to the file.
std::vector<OrvDoc::LayerConfiguration::Node> ReadLayerOrder(QPDFObjectHandle order,
                                                             DocumentResources& document,
                                                             const OrvDoc::Layers& layers, ErrorList& errors);

} // namespace OrvPdf
