#include <array>
#include <cstdint>
#include <cstring>

#include "pdf/reader/interpreter.h"

namespace OrvPdf
{

namespace
{

/// An operator, its operands and what carries it out.
struct Row
{
    OperatorId id;
    /// A letter for each operand: n number, N name, a array, o name or dictionary; `*` alone for any.
    const char* operands;
    void (Interpreter::*handler)(const Arguments&);
};

using I = Interpreter;

constexpr Row rows[] = {
    {OperatorId::MoveTo, "nn", &I::MoveTo},
    {OperatorId::LineTo, "nn", &I::LineTo},
    {OperatorId::CurveTo, "nnnnnn", &I::CurveTo},
    {OperatorId::CurveToFromCurrent, "nnnn", &I::CurveToFromCurrent},
    {OperatorId::CurveToReplicateFinal, "nnnn", &I::CurveToReplicateFinal},
    {OperatorId::ClosePath, "", &I::ClosePath},
    {OperatorId::Rectangle, "nnnn", &I::Rectangle},

    {OperatorId::Stroke, "", &I::Stroke},
    {OperatorId::CloseStroke, "", &I::CloseStroke},
    {OperatorId::Fill, "", &I::Fill},
    {OperatorId::FillObsolete, "", &I::Fill},
    {OperatorId::FillEvenOdd, "", &I::FillEvenOdd},
    {OperatorId::FillStroke, "", &I::FillStroke},
    {OperatorId::FillStrokeEvenOdd, "", &I::FillStrokeEvenOdd},
    {OperatorId::CloseFillStroke, "", &I::CloseFillStroke},
    {OperatorId::CloseFillStrokeEvenOdd, "", &I::CloseFillStrokeEvenOdd},
    {OperatorId::EndPath, "", &I::EndPath},
    {OperatorId::Clip, "", &I::Clip},
    {OperatorId::ClipEvenOdd, "", &I::ClipEvenOdd},

    {OperatorId::SaveState, "", &I::SaveState},
    {OperatorId::RestoreState, "", &I::RestoreState},
    {OperatorId::ConcatMatrix, "nnnnnn", &I::ConcatMatrix},
    {OperatorId::SetLineWidth, "n", &I::SetLineWidth},
    {OperatorId::SetLineCap, "n", &I::SetLineCap},
    {OperatorId::SetLineJoin, "n", &I::SetLineJoin},
    {OperatorId::SetMiterLimit, "n", &I::SetMiterLimit},
    {OperatorId::SetDash, "an", &I::SetDash},
    {OperatorId::SetRenderingIntent, "N", &I::SetRenderingIntent},
    {OperatorId::SetFlatness, "n", &I::SetFlatness},
    {OperatorId::SetGraphicsState, "N", &I::SetParameters},

    {OperatorId::SetFillColorSpace, "N", &I::SetFillColorSpace},
    {OperatorId::SetStrokeColorSpace, "N", &I::SetStrokeColorSpace},
    {OperatorId::SetFillColor, "*", &I::SetFillColor},
    {OperatorId::SetStrokeColor, "*", &I::SetStrokeColor},
    {OperatorId::SetFillColorSpecial, "*", &I::SetFillColor},
    {OperatorId::SetStrokeColorSpecial, "*", &I::SetStrokeColor},
    {OperatorId::SetFillGray, "n", &I::SetFillGray},
    {OperatorId::SetStrokeGray, "n", &I::SetStrokeGray},
    {OperatorId::SetFillRgb, "nnn", &I::SetFillRgb},
    {OperatorId::SetStrokeRgb, "nnn", &I::SetStrokeRgb},
    {OperatorId::SetFillCmyk, "nnnn", &I::SetFillCmyk},
    {OperatorId::SetStrokeCmyk, "nnnn", &I::SetStrokeCmyk},

    {OperatorId::BeginMarkedContent, "N", &I::BeginMarkedContent},
    {OperatorId::BeginMarkedContentList, "No", &I::BeginMarkedContentList},
    {OperatorId::EndMarkedContent, "", &I::EndMarkedContent},
    {OperatorId::MarkedPoint, "N", &I::MarkedPoint},
    {OperatorId::MarkedPointList, "No", &I::MarkedPointList},

    {OperatorId::BeginCompatibility, "", &I::BeginCompatibility},
    {OperatorId::EndCompatibility, "", &I::EndCompatibility},

    {OperatorId::PaintXObject, "N", &I::PaintXObject},
    {OperatorId::PaintShading, "N", &I::PaintShading},
    {OperatorId::BeginInlineImage, "*", &I::LeaveOutInlineImage},
    {OperatorId::BeginText, "", &I::LeaveOutText},
    {OperatorId::EndText, "", &I::LeaveOutText},
    {OperatorId::NextLine, "*", &I::LeaveOutText},
    {OperatorId::SetCharacterSpacing, "*", &I::LeaveOutText},
    {OperatorId::MoveText, "*", &I::LeaveOutText},
    {OperatorId::MoveTextSetLeading, "*", &I::LeaveOutText},
    {OperatorId::SetFont, "*", &I::LeaveOutText},
    {OperatorId::ShowText, "*", &I::LeaveOutText},
    {OperatorId::ShowTextAdjusted, "*", &I::LeaveOutText},
    {OperatorId::SetLeading, "*", &I::LeaveOutText},
    {OperatorId::SetTextMatrix, "*", &I::LeaveOutText},
    {OperatorId::SetTextRenderingMode, "*", &I::LeaveOutText},
    {OperatorId::SetTextRise, "*", &I::LeaveOutText},
    {OperatorId::SetWordSpacing, "*", &I::LeaveOutText},
    {OperatorId::SetHorizontalScaling, "*", &I::LeaveOutText},
    {OperatorId::NextLineShowText, "*", &I::LeaveOutText},
    {OperatorId::NextLineShowTextWithSpacing, "*", &I::LeaveOutText},

    {OperatorId::SetGlyphWidth, "*", &I::RejectMisplaced},
    {OperatorId::SetGlyphWidthAndBox, "*", &I::RejectMisplaced},
    {OperatorId::EndInlineImage, "*", &I::RejectMisplaced},
    {OperatorId::InlineImageData, "*", &I::RejectMisplaced},
};

/// The row of each operator, by its number.
constexpr std::array<std::uint8_t, 256> IndexRows()
{
    std::array<std::uint8_t, 256> index{};
    std::uint8_t number = 0;
    for (const Row& row : rows) {
        index[static_cast<std::size_t>(row.id)] = ++number;
    }
    return index;
}

constexpr std::array<std::uint8_t, 256> numbers = IndexRows();

bool Matches(char kind, const Operand& operand)
{
    switch (kind) {
    case 'n':
        return operand.IsNumber();
    case 'N':
        return operand.IsName();
    case 'a':
        return operand.Kind() == OperandKind::Array;
    default:
        return operand.IsName() || operand.Kind() == OperandKind::Dictionary;
    }
}

} // namespace

void Interpreter::Execute(const ContentOperation& operation)
{
    const ByteRange place{operation.begin, operation.end};
    const std::uint8_t number = numbers[static_cast<std::size_t>(operation.id)];
    if (number == 0) {
        if (compatibilityDepth > 0) {
            problems.Unmodelled(operation.operatorText, "unknown operator in a compatibility section", {},
                                place);
        } else {
            problems.Damaged(operation.operatorText, "unknown operator", {}, place);
        }
        return;
    }
    const Row& row = rows[number - 1];
    if (row.operands[0] == '*') {
        (this->*row.handler)(Arguments(operation, operation.operands.size()));
        return;
    }
    const std::size_t count = std::strlen(row.operands);
    if (operation.operands.size() < count) {
        problems.Damaged(operation.operatorText, "too few operands", {}, place);
        return;
    }
    const Arguments arguments(operation, count);
    const char* kind = row.operands;
    for (const Operand& operand : arguments.All()) {
        if (!Matches(*kind++, operand)) {
            problems.Damaged(operation.operatorText, "an operand of the wrong type", {}, place);
            return;
        }
    }
    if (operation.operands.size() > count) {
        problems.Odd(operation.operatorText, "more operands than it takes; the last ones count", {}, place);
    }
    (this->*row.handler)(arguments);
}

} // namespace OrvPdf
