#pragma once

#include <array>
#include <string>
#include <vector>

#include <plexa/rectangle.h>

#include "pdf/reader/document/page_tree.h"

namespace OrvPdf
{

using PageBoxes = std::array<Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>, 5>;

/// A page's boxes in the order of `OrvDoc::PageBox`, each as the file has it (ISO 32000-1, 14.11.2): no
/// default takes the place of a missing one, which stays in its initial state. So does one that is malformed;
/// it is told in `problems`, as is a missing media box. Needs an access to the file.
PageBoxes ReadPageBoxes(const PageEntry& page, std::vector<std::string>& problems);

} // namespace OrvPdf
