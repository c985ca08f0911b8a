#pragma once

#include <cstdint>
#include <string_view>

namespace OrvPdf
{

/// The operators of content streams, ISO 32000-1, Annex A. Named for what they do, since C++ cannot tell `'`,
/// `"` and `b*` apart in names; the text stands behind each.
enum class OperatorId : std::uint8_t
{
    Unknown,
    CloseFillStroke,            // b
    FillStroke,                 // B
    CloseFillStrokeEvenOdd,     // b*
    FillStrokeEvenOdd,          // B*
    BeginMarkedContentList,     // BDC
    BeginInlineImage,           // BI
    BeginMarkedContent,         // BMC
    BeginText,                  // BT
    BeginCompatibility,         // BX
    CurveTo,                    // c
    ConcatMatrix,               // cm
    SetStrokeColorSpace,        // CS
    SetFillColorSpace,          // cs
    SetDash,                    // d
    SetGlyphWidth,              // d0
    SetGlyphWidthAndBox,        // d1
    PaintXObject,               // Do
    MarkedPointList,            // DP
    EndInlineImage,             // EI
    EndMarkedContent,           // EMC
    EndText,                    // ET
    EndCompatibility,           // EX
    Fill,                       // f
    FillObsolete,               // F
    FillEvenOdd,                // f*
    SetStrokeGray,              // G
    SetFillGray,                // g
    SetGraphicsState,           // gs
    ClosePath,                  // h
    SetFlatness,                // i
    InlineImageData,            // ID
    SetLineJoin,                // j
    SetLineCap,                 // J
    SetStrokeCmyk,              // K
    SetFillCmyk,                // k
    LineTo,                     // l
    MoveTo,                     // m
    SetMiterLimit,              // M
    MarkedPoint,                // MP
    EndPath,                    // n
    SaveState,                  // q
    RestoreState,               // Q
    Rectangle,                  // re
    SetStrokeRgb,               // RG
    SetFillRgb,                 // rg
    SetRenderingIntent,         // ri
    CloseStroke,                // s
    Stroke,                     // S
    SetFillColor,               // sc
    SetStrokeColor,             // SC
    SetFillColorSpecial,        // scn
    SetStrokeColorSpecial,      // SCN
    PaintShading,               // sh
    NextLine,                   // T*
    SetCharacterSpacing,        // Tc
    MoveText,                   // Td
    MoveTextSetLeading,         // TD
    SetFont,                    // Tf
    ShowText,                   // Tj
    ShowTextAdjusted,           // TJ
    SetLeading,                 // TL
    SetTextMatrix,              // Tm
    SetTextRenderingMode,       // Tr
    SetTextRise,                // Ts
    SetWordSpacing,             // Tw
    SetHorizontalScaling,       // Tz
    CurveToFromCurrent,         // v
    SetLineWidth,               // w
    Clip,                       // W
    ClipEvenOdd,                // W*
    CurveToReplicateFinal,      // y
    NextLineShowText,           // '
    NextLineShowTextWithSpacing // "
};

/// The operator that the text spells, case matters; Unknown if it spells none. Constant time.
OperatorId FindOperator(std::string_view text);

/// The operator's text, `?` for Unknown.
std::string_view OperatorText(OperatorId id);

} // namespace OrvPdf
