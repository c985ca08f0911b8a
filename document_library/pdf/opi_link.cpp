#include "pdf/opi_link.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

PdfObject MakeOpiDictionary(const std::string& uri)
{
    const PdfObject file =
        PdfObject::Dictionary({{"Type", PdfObject::Name("Filespec")}, {"F", PdfObject::String(uri)}});
    const PdfObject version = PdfObject::Dictionary(
        {{"Type", PdfObject::Name("OPI")}, {"Version", PdfObject::Real("2.0")}, {"F", file}});
    return PdfObject::Dictionary({{"2.0", version}});
}

} // namespace OrvPdf
