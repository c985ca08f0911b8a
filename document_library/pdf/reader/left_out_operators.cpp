#include "pdf/reader/inherited_parameters.h"
#include "pdf/reader/interpreter.h"

namespace OrvPdf
{

namespace
{

/// Whether an inline image is a mask that the colour is poured through (ISO 32000-1, 8.9.7).
bool IsStencil(const Arguments& arguments)
{
    for (const char* const key : {"IM", "ImageMask"}) {
        const Operand* const value = arguments.Operation().operands.FindValue(key);
        if (value && value->Kind() == OperandKind::Boolean && value->AsBoolean()) {
            return true;
        }
    }
    return false;
}

} // namespace

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

void Interpreter::LeaveOutInlineImage(const Arguments& arguments)
{
    problems.Unmodelled("BI", "pictures are not modelled", {}, arguments.Place());
    NotePicture(IsStencil(arguments));
}

void Interpreter::NotePicture(bool isStencil)
{
    MarkUsed(Inherited::painting | Inherited::fillOverprint | (isStencil ? Inherited::fill : 0));
}

void Interpreter::RejectMisplaced(const Arguments& arguments)
{
    problems.Damaged(arguments.Operation().operatorText, "the operator has no place here", {},
                     arguments.Place());
}

} // namespace OrvPdf
