#pragma once

#include <cstdint>
#include <map>

#include <qpdf/QPDFObjectHandle.hh>

namespace OrvPdf
{

/// Horizontal advances by CID, in thousandths of the size.
using GlyphWidths = std::map<std::uint32_t, double>;

/// The measures of a CID for vertical writing (ISO 32000-1, 9.7.4.3), in thousandths of the size.
struct VerticalMetrics
{
    /// Upwards, so negative as a rule.
    double advance = 0;
    /// From the origin of horizontal writing to that of vertical writing.
    double originX = 0;
    double originY = 0;
};

using VerticalWidths = std::map<std::uint32_t, VerticalMetrics>;

/// Gives a CIDFont the entries `DW`, the most frequent width that is an integer, and `W`, all others with
/// neighbours joined. Each width is read back as it is, bit by bit. There are readers that take nothing but
/// an integer as `DW`.
/// @throws std::invalid_argument for a width that is not finite
void SetWidths(QPDFObjectHandle font, const GlyphWidths& widths);

/// The same with `DW2` and `W2`. `widths` are the horizontal ones of the same CIDs, from which the usual
/// place of the vertical origin follows.
void SetVerticalWidths(QPDFObjectHandle font, const VerticalWidths& metrics, const GlyphWidths& widths);

} // namespace OrvPdf
