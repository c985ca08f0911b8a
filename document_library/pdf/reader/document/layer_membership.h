#pragma once

#include <string>

#include <boost/optional.hpp>
#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/layer.h>

namespace OrvPdf
{

class DocumentResources;

/// What a property list says of layers: an optional content group is the layer itself, a membership
/// dictionary (ISO 32000-1, 8.11.2.2) an expression, from `VE` where it has one and otherwise from `OCGs` and
/// `P`. Nothing for another property list. Layers that the document doesn't have are left out of an
/// expression and told in `problem`. Needs an access to the file.
boost::optional<OrvDoc::Layer::Membership>
ReadLayerMembership(DocumentResources& document, QPDFObjectHandle propertyList, std::string& problem);

} // namespace OrvPdf
