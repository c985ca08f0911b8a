#pragma once

#include <cstdint>
#include <string>

#include "pdf/pictures/raster.h"

namespace OrvPdf
{

/// Bytes of a row of that many samples, the last one filled up.
std::uint64_t BytesOfRasterRow(std::uint64_t width, std::uint64_t channels, std::uint64_t bits);

/// Whether a decoder may make this raster, whose sizes are set already, and hold `working` bytes beside it.
/// Otherwise the raster's problem says which limit stands against it. Takes no memory for samples.
bool FitsLimits(Raster& raster, std::uint64_t working, const RasterLimits& limits);

/// Keeps what is said first: later problems mostly follow from it.
void TellProblem(Raster& raster, const std::string& problem);

} // namespace OrvPdf
