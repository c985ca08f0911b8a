#include <orv_doc/halftone_set.h>

#include <ostream>
#include <utility>

#include "orv_doc/text_form.h"

namespace OrvDoc
{

HalftoneSet::HalftoneSet(std::string givenName, OrvSys::PdfObject givenDefinition)
    : name(std::move(givenName)), definition(std::move(givenDefinition))
{}

bool operator==(const HalftoneSet& left, const HalftoneSet& right)
{
    return left.GetName() == right.GetName() && left.GetDefinition() == right.GetDefinition();
}

std::ostream& operator<<(std::ostream& stream, const HalftoneSet& halftones)
{
    std::string text;
    Detail::AppendQuoted(text, halftones.GetName());
    return stream << text + " (" + halftones.GetDefinition().GetDigestText() + ")";
}

} // namespace OrvDoc
