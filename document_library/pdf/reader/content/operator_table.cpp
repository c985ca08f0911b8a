#include <array>
#include <cstdint>
#include <cstring>

#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

namespace
{

/// An operator, its operands and what carries it out.
struct Row
{
    OperatorId id;
    /// A letter for each operand: n number, N name, s string, a array, o name or dictionary; `*` alone for
    /// any.
    const char* operands;
    void (Interpreter::*handler)(const Arguments&);
    /// It does nothing where a glyph is a stencil (ISO 32000-1, 9.6.5).
    bool setsColor = false;
};

constexpr bool color = true;

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
    {OperatorId::SetRenderingIntent, "N", &I::SetRenderingIntent, color},
    {OperatorId::SetFlatness, "n", &I::SetFlatness},
    {OperatorId::SetGraphicsState, "N", &I::SetParameters},

    {OperatorId::SetFillColorSpace, "N", &I::SetFillColorSpace, color},
    {OperatorId::SetStrokeColorSpace, "N", &I::SetStrokeColorSpace, color},
    {OperatorId::SetFillColor, "*", &I::SetFillColor, color},
    {OperatorId::SetStrokeColor, "*", &I::SetStrokeColor, color},
    {OperatorId::SetFillColorSpecial, "*", &I::SetFillColor, color},
    {OperatorId::SetStrokeColorSpecial, "*", &I::SetStrokeColor, color},
    {OperatorId::SetFillGray, "n", &I::SetFillGray, color},
    {OperatorId::SetStrokeGray, "n", &I::SetStrokeGray, color},
    {OperatorId::SetFillRgb, "nnn", &I::SetFillRgb, color},
    {OperatorId::SetStrokeRgb, "nnn", &I::SetStrokeRgb, color},
    {OperatorId::SetFillCmyk, "nnnn", &I::SetFillCmyk, color},
    {OperatorId::SetStrokeCmyk, "nnnn", &I::SetStrokeCmyk, color},

    {OperatorId::BeginMarkedContent, "N", &I::BeginMarkedContent},
    {OperatorId::BeginMarkedContentList, "No", &I::BeginMarkedContentList},
    {OperatorId::EndMarkedContent, "", &I::EndMarkedContent},
    {OperatorId::MarkedPoint, "N", &I::MarkedPoint},
    {OperatorId::MarkedPointList, "No", &I::MarkedPointList},

    {OperatorId::BeginCompatibility, "", &I::BeginCompatibility},
    {OperatorId::EndCompatibility, "", &I::EndCompatibility},

    {OperatorId::PaintXObject, "N", &I::PaintXObject},
    {OperatorId::PaintShading, "N", &I::PaintShading},
    {OperatorId::BeginInlineImage, "*", &I::PaintInlineImage},
    {OperatorId::BeginText, "", &I::BeginText},
    {OperatorId::EndText, "", &I::EndText},
    {OperatorId::NextLine, "", &I::NextLine},
    {OperatorId::SetCharacterSpacing, "n", &I::SetCharacterSpacing},
    {OperatorId::MoveText, "nn", &I::MoveText},
    {OperatorId::MoveTextSetLeading, "nn", &I::MoveTextSetLeading},
    {OperatorId::SetFont, "Nn", &I::SetFont},
    {OperatorId::ShowText, "s", &I::ShowText},
    {OperatorId::ShowTextAdjusted, "a", &I::ShowTextAdjusted},
    {OperatorId::SetLeading, "n", &I::SetLeading},
    {OperatorId::SetTextMatrix, "nnnnnn", &I::SetTextMatrix},
    {OperatorId::SetTextRenderingMode, "n", &I::SetTextRenderingMode},
    {OperatorId::SetTextRise, "n", &I::SetTextRise},
    {OperatorId::SetWordSpacing, "n", &I::SetWordSpacing},
    {OperatorId::SetHorizontalScaling, "n", &I::SetHorizontalScaling},
    {OperatorId::NextLineShowText, "s", &I::NextLineShowText},
    {OperatorId::NextLineShowTextWithSpacing, "nns", &I::NextLineShowTextWithSpacing},

    {OperatorId::SetGlyphWidth, "*", &I::SetGlyphWidth},
    {OperatorId::SetGlyphWidthAndBox, "*", &I::SetGlyphWidthAndBox},
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
    case 's':
        return operand.IsString();
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
    if (isColorFixed && row.setsColor) {
        return;
    }
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
