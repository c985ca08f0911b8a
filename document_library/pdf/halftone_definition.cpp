#include "pdf/halftone_definition.h"

namespace OrvPdf
{

bool IsHalftoneDefinition(const OrvSys::PdfObject& value)
{
    const OrvSys::PdfObject type = value.Find("HalftoneType");
    if (!type.IsInteger()) {
        return false;
    }
    switch (type.GetInteger()) {
    case 1:
    case 5:
        return value.IsDictionary();
    case 6:
    case 10:
    case 16:
        return value.IsStream();
    default:
        return false;
    }
}

std::string GetHalftoneName(const OrvSys::PdfObject& definition)
{
    const OrvSys::PdfObject name = definition.Find("HalftoneName");
    return name.IsString() ? name.GetText() : std::string();
}

} // namespace OrvPdf
