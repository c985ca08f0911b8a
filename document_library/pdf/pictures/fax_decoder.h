#pragma once

#include <cstddef>
#include <string_view>

#include "pdf/pictures/raster.h"

namespace OrvPdf
{

/// The parameters of CCITTFaxDecode (ISO 32000-1, Table 11).
struct FaxParameters
{
    long long k = 0;
    bool endOfLine = false;
    bool encodedByteAlign = false;
    long long columns = 1728;
    long long rows = 0;
    bool endOfBlock = true;
    bool blackIs1 = false;
    long long damagedRowsBeforeError = 0;
};

/// Decodes Group 3 (one- and two-dimensional) and Group 4 data to one channel of one bit. `height` are the
/// rows that the picture has, 0 if nobody knows; decoding ends there or where the data ends. Rows behind
/// damage are white or as far as they were decoded. Throws std::bad_alloc alone.
Raster DecodeFax(std::string_view data, const FaxParameters& parameters, std::size_t height,
                 const RasterLimits& limits);

} // namespace OrvPdf
