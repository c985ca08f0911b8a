#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace OrvPdf
{

/// What a font program says about itself for a font descriptor (ISO 32000-1, 9.8). Lengths are in thousandths
/// of the size.
struct FontMeasures
{
    double ascent = 0;
    double descent = 0;
    double capHeight = 0;
    /// Degrees, counter-clockwise from the vertical.
    double italicAngle = 0;
    /// 100 to 900 in steps of 100, the lightest first.
    int weight = 400;
    /// A name of table 122, such as "Condensed".
    const char* stretch = "Normal";
    /// Those of table 123. All fonts are symbolic: their codes are glyph ids.
    std::uint32_t flags = 0;
    /// How wide the stems are. Programs don't tell; it follows from the weight.
    double stemWidth = 0;
};

/// Reads the tables of the program; what they don't say keeps a usual value.
FontMeasures ReadFontMeasures(std::string_view program, unsigned face);

} // namespace OrvPdf
