#pragma once

#include <cstdint>

#include "pdf/reader/content/graphics_state.h"

namespace OrvPdf
{

/// The parameters of the graphics state that the content of a form begins with as they are where the form is
/// painted (ISO 32000-1, 8.10.1). A set of bits.
namespace Inherited
{
constexpr std::uint32_t fillColor = 1U << 0;
constexpr std::uint32_t strokeColor = 1U << 1;
constexpr std::uint32_t fillOverprint = 1U << 2;
constexpr std::uint32_t strokeOverprint = 1U << 3;
constexpr std::uint32_t overprintMode = 1U << 4;
constexpr std::uint32_t lineWidth = 1U << 5;
constexpr std::uint32_t lineCap = 1U << 6;
constexpr std::uint32_t lineJoin = 1U << 7;
constexpr std::uint32_t miterLimit = 1U << 8;
constexpr std::uint32_t dash = 1U << 9;
constexpr std::uint32_t blending = 1U << 10;
constexpr std::uint32_t halftones = 1U << 11;
constexpr std::uint32_t transferFunctions = 1U << 12;
constexpr std::uint32_t textFont = 1U << 13; // with the size
constexpr std::uint32_t characterSpacing = 1U << 14;
constexpr std::uint32_t wordSpacing = 1U << 15;
constexpr std::uint32_t horizontalScaling = 1U << 16;
constexpr std::uint32_t leading = 1U << 17;
constexpr std::uint32_t textRise = 1U << 18;
constexpr std::uint32_t textMode = 1U << 19;
constexpr std::uint32_t renderingIntent = 1U << 20;
constexpr std::uint32_t text =
    textFont | characterSpacing | wordSpacing | horizontalScaling | leading | textRise | textMode;

constexpr std::uint32_t fill = fillColor | fillOverprint | overprintMode;
constexpr std::uint32_t stroke =
    strokeColor | strokeOverprint | overprintMode | lineWidth | lineCap | lineJoin | miterLimit | dash;
/// What counts for all that is painted.
constexpr std::uint32_t painting = blending | halftones | transferFunctions;
constexpr std::uint32_t all = fill | stroke | painting | text | renderingIntent;
} // namespace Inherited

/// The state that the content of a page begins with (ISO 32000-1, tables 52 and 53).
GraphicsState BeginPage();

/// The state that the content of a form begins with where the form is painted under `state`, every parameter
/// marked as taken over. What is in force for the blending of a transparency group applies to it as a whole:
/// its content begins without (11.6.6).
GraphicsState BeginForm(const GraphicsState& state, bool isTransparencyGroup);

/// The parameters among these that are not as at the start of a page. A writer sees to it that a form that
/// stays as it stands in its file is painted where its parameters are.
std::uint32_t FindPeculiar(const GraphicsState& state, std::uint32_t parameters);

/// Whether two states agree in those parameters.
bool Agree(const GraphicsState& left, const GraphicsState& right, std::uint32_t parameters);

} // namespace OrvPdf
