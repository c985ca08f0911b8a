#include "pdf/reader/content/interpreter.h"

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

void Interpreter::RejectMisplaced(const Arguments& arguments)
{
    problems.Damaged(arguments.Operation().operatorText, "the operator has no place here", {},
                     arguments.Place());
}

} // namespace OrvPdf
