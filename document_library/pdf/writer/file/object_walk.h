#pragma once

#include <functional>

#include <qpdf/QPDFObjectHandle.hh>

class QPDF;

namespace OrvPdf
{

/// Calls `visit` for each array, dictionary and stream that can be reached from the trailer: for what is
/// written. An object is visited before what is in it, and may be changed then. Depth costs memory and no
/// stack: objects may hang together in a long chain.
void VisitObjects(QPDF& file, const std::function<void(QPDFObjectHandle&)>& visit);

} // namespace OrvPdf
