#include "pdf/halftone_definition.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

void Interpreter::ApplyHalftones(const PdfObject& parameters, const Arguments& arguments)
{
    const PdfObject definition = parameters.Find("HT");
    if (definition.IsNull()) {
        return;
    }
    if (definition.IsName("Default")) {
        state.inherited &= ~Inherited::halftones;
        state.halftones = nullptr;
        return;
    }
    if (!IsHalftoneDefinition(definition)) {
        problems.Unmodelled("gs", "parameter HT is no halftone of a known type", {}, arguments.Place());
        return;
    }
    state.inherited &= ~Inherited::halftones;
    const PdfObject name = parameters.Find(halftoneNameKey);
    state.halftones =
        halftones.Get(name.IsString() ? name.GetText() : GetHalftoneName(definition), definition);
}

} // namespace OrvPdf
