#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/pictures/jpx_codestream.h"

namespace OrvPdf
{

/// Samples of a component, moved up if they are signed, and without what is below 16 bits.
struct JpxPlane
{
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::uint16_t> samples;
};

struct JpxPlanes
{
    std::vector<JpxPlane> planes;
    /// Rows of the picture that tiles were found for; those below are zeros.
    std::size_t rows = 0;
    std::string problem;
};

/// Bytes that the planes take together.
std::uint64_t BytesOfPlanes(const JpxSize& size);

/// Decodes tile by tile. What it takes besides was asked for with EstimateJpxWork.
JpxPlanes DecodePlanes(std::string_view codestream, const JpxSize& size);

} // namespace OrvPdf
