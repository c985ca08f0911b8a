#pragma once

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

/// Gives the resources of a page to those appearances of its annotations that have none of their own: in old
/// files they use the page's (ISO 32000-1, table 95), which are about to be replaced.
void GiveResourcesToAppearances(QPDFObjectHandle page, QPDFObjectHandle resources);

} // namespace OrvPdf
