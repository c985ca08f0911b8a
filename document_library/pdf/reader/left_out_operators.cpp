#include "pdf/reader/inherited_parameters.h"
#include "pdf/reader/interpreter.h"

namespace OrvPdf
{

void Interpreter::BeginCompatibility(const Arguments&)
{
    ++compatibilityDepth;
}

void Interpreter::EndCompatibility(const Arguments& arguments)
{
    if (compatibilityDepth == 0) {
        problems.Damaged("EX", "there is no compatibility section to end", {}, arguments.Place());
        return;
    }
    --compatibilityDepth;
}

void Interpreter::LeaveOutText(const Arguments& arguments)
{
    MarkUsed(Inherited::all);
    problems.Unmodelled(arguments.Operation().operatorText, "text is not modelled", {}, arguments.Place());
}

void Interpreter::LeaveOutInlineImage(const Arguments& arguments)
{
    problems.Unmodelled("BI", "pictures are not modelled", {}, arguments.Place());
}

void Interpreter::RejectMisplaced(const Arguments& arguments)
{
    problems.Damaged(arguments.Operation().operatorText, "the operator has no place here", {},
                     arguments.Place());
}

} // namespace OrvPdf
