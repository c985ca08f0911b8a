#pragma once

#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/separation.h>

#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// Collects the separations of a document, each name once. Needs an access to the file.
///
/// First come those that the catalogue lists under `OrvSeparations`, an array of dictionaries with `Name` (a
/// name), `Alternate` (an array of `DeviceGray`, `DeviceRGB`, `DeviceCMYK` or `Lab` and the components;
/// optional) and `Space` (the colour space that names it; optional): it keeps an order and alternates that
/// somebody gave; an entry with `Hidden` is a name that the document's list was written without. Then come
/// the colorants of the Separation and DeviceN spaces that the pages' resources hold, or the forms, patterns,
/// shadings and pictures in them, in order of the pages and within a dictionary in order of the names. `All`
/// and `None` are no separations.
std::vector<OrvDoc::Separation::Entry> CollectSeparations(QPDFObjectHandle catalogue,
                                                          const std::vector<QPDFObjectHandle>& pageResources,
                                                          DocumentResources& document);

} // namespace OrvPdf
