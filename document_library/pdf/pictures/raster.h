#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "pdf/decoded_bytes.h"

namespace OrvPdf
{

/// What a filter for pictures makes of its data: packed rows as `OrvImg::PictureBuffer` has them.
struct Raster
{
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t channels = 0;
    std::size_t bits = 0;
    /// Rows one behind the other; fewer than `height` of them, or none, where the data ends early.
    DecodedBytes rows;
    /// What is wrong with the data, in words that can follow "object 12 0: "; empty if nothing is.
    std::string problem;
};

/// What one picture may take: `ReadOptions::Limits::pictureSamples`, and the bytes that are left. Asked
/// before any memory is taken.
struct RasterLimits
{
    std::uint64_t samples;
    std::uint64_t bytes;
    /// The limit that the bytes come from, and its value: more than `bytes` if some of it is used up.
    const char* bytesName = "streamBytes";
    std::uint64_t bytesValue = bytes;
};

} // namespace OrvPdf
