#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <orv_color/icc_profile.h>

#include "pdf/pictures/raster.h"

namespace OrvPdf
{

/// What the boxes and the main header of a JPEG 2000 file or bare codestream say (ISO/IEC 15444-1, annexes A
/// and I).
struct JpxHeader
{
    enum class Space : std::uint32_t
    {
        None, ///< Nothing is said.
        Gray, ///< Enumerated as grey, 17.
        Rgb,  ///< sRGB, 16, and sYCC, 18, which decodes to it.
        Cmyk, ///< 12.
        Lab,  ///< 14.
        Profile
    };

    bool isValid = false;
    std::size_t width = 0;
    std::size_t height = 0;
    /// Precision of each channel that decoding gives, a palette already applied.
    std::vector<std::size_t> precisions;
    Space space = Space::None;
    std::shared_ptr<const OrvColor::ICCProfile> profile;
    /// Positions of the channels that are opacities, and whether the colours are multiplied with them
    /// already.
    std::vector<std::size_t> alphaChannels;
    bool isPremultiplied = false;
};

/// Reads boxes and main header; no packet is decoded.
JpxHeader ReadJpxHeader(std::string_view data);

/// Decodes it. All channels come in 8 bits if none has more, otherwise in 16; a sample keeps its number, so
/// that one of 12 bits lies in 0..4095, and signed samples are moved up to begin at 0. Subsampled channels
/// are brought to the full size by repeating samples. The channels come in the order of their colours,
/// opacities last. Damage leaves what was decoded before it. Throws std::bad_alloc alone.
Raster DecodeJpx(std::string_view data, const RasterLimits& limits);

} // namespace OrvPdf
