#include "pdf/reader/inherited_parameters.h"
#include "pdf/reader/interpreter.h"

namespace OrvPdf
{

namespace
{

double GetTextParameter(const Arguments& arguments, double otherwise)
{
    const std::size_t count = arguments.Count();
    return count > 0 && arguments[count - 1].IsNumber() ? arguments[count - 1].AsNumber() : otherwise;
}

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

void Interpreter::LeaveOutText(const Arguments& arguments)
{
    problems.Unmodelled(arguments.Operation().operatorText, "text is not modelled", {}, arguments.Place());
    switch (arguments.Operation().id) {
    case OperatorId::SetFont:
        NoteTextChange(Inherited::textFont, true);
        break;
    case OperatorId::SetTextRenderingMode: {
        const double mode = GetTextParameter(arguments, 0.0);
        state.strokesText = mode == 1.0 || mode == 2.0 || mode == 5.0 || mode == 6.0;
        NoteTextChange(Inherited::textState, mode != 0.0);
        break;
    }
    case OperatorId::SetHorizontalScaling:
        NoteTextChange(Inherited::textState, GetTextParameter(arguments, 100.0) != 100.0);
        break;
    case OperatorId::SetCharacterSpacing:
    case OperatorId::SetWordSpacing:
    case OperatorId::SetLeading:
    case OperatorId::SetTextRise:
        NoteTextChange(Inherited::textState, GetTextParameter(arguments, 0.0) != 0.0);
        break;
    case OperatorId::MoveTextSetLeading:
        NoteTextChange(Inherited::textState, true);
        break;
    case OperatorId::NextLineShowTextWithSpacing:
        NoteTextChange(Inherited::textState, true);
        NoteShownText();
        break;
    case OperatorId::ShowText:
    case OperatorId::ShowTextAdjusted:
    case OperatorId::NextLineShowText:
        NoteShownText();
        break;
    default:
        break;
    }
}

void Interpreter::NoteTextChange(std::uint32_t parameter, bool isChange)
{
    // There is one font, but many of the other parameters.
    state.inherited &= parameter == Inherited::textFont ? ~parameter : ~0U;
    state.changedText |= isChange ? parameter : 0;
}

void Interpreter::NoteShownText()
{
    MarkUsed(Inherited::fill | Inherited::painting | Inherited::text);
    if (state.strokesText) {
        MarkUsed(Inherited::stroke);
    }
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
