#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/transfer_definition.h"

namespace OrvPdf
{

using OrvSys::PdfObject;

void Interpreter::ApplyTransferFunctions(const PdfObject& parameters, const Arguments& arguments)
{
    const PdfObject entries = SelectTransferEntries(parameters);
    if (entries.IsNull()) {
        return;
    }
    std::string problem;
    auto functions = transferFunctions.Get(entries, problem);
    if (!problem.empty()) {
        problems.Unmodelled("gs", "transfer functions: " + problem, {}, arguments.Place());
        return;
    }
    state.inherited &= ~Inherited::transferFunctions;
    state.transfer = {std::move(functions), arguments.Place()};
}

void Interpreter::NotePainting()
{
    ByteRange place;
    if (!transferFunctions.Paint(state.transfer, place)) {
        problems.Unmodelled("gs", "transfer functions of a part of the content are not modelled", {}, place);
    }
}

} // namespace OrvPdf
