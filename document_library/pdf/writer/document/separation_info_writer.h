#pragma once

#include <string>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include <orv_doc/separation.h>

namespace OrvPdf
{

class ObjectMaker;

/// Lists the separations in the catalogue's `OrvSeparations`, which keeps their order and the colours that
/// stand for them: an array of dictionaries with `Name`, `Alternate` (a name of a colour family and the
/// components) and `Space`. `named` are those that colour spaces of the file name; one that is no entry is
/// listed with `Hidden`, so that it does not come back from there. Without any there is no such key.
void WriteSeparationInfo(const std::vector<OrvDoc::Separation::Entry>& entries,
                         const std::vector<std::string>& named, QPDFObjectHandle catalogue,
                         ObjectMaker& maker);

} // namespace OrvPdf
