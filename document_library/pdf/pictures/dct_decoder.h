#pragma once

#include <cstddef>
#include <string_view>

#include "pdf/pictures/raster.h"

namespace OrvPdf
{

/// What the header of a JPEG file says.
struct DctHeader
{
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t channels = 0;
    /// Whether a frame was found.
    bool isValid = false;
};

/// Looks for the frame header alone, in time linear in the bytes before it.
DctHeader ReadDctHeader(std::string_view data);

/// Decodes a JPEG file (ISO 32000-1, 7.4.8) with 1, 3 or 4 components of 8 bits. `colorTransform` is the
/// filter's parameter, -1 if it isn't given; an Adobe marker in the data overrules it. YCbCr gives RGB and
/// YCCK gives CMYK; nothing is inverted. Damage leaves what was decoded before it. Throws std::bad_alloc
/// alone.
Raster DecodeDct(std::string_view data, long long colorTransform, const RasterLimits& limits);

} // namespace OrvPdf
