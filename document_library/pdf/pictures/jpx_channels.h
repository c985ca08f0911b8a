#pragma once

#include <cstddef>
#include <vector>

#include "pdf/pictures/jpx_boxes.h"
#include "pdf/pictures/jpx_codestream.h"

namespace OrvPdf
{

/// Samples with more bits lose their lowest ones.
inline constexpr std::size_t maximalJpxPrecision = 16;

/// Where the samples of a channel come from.
struct JpxChannel
{
    std::size_t component = 0;
    bool usesPalette = false;
    std::size_t column = 0;
    /// As the file has it.
    std::size_t precision = 0;
    bool isAlpha = false;
    bool isPremultiplied = false;
};

/// The channels in the order that decoding gives them: colours, those that are neither, opacities.
std::vector<JpxChannel> ListJpxChannels(const JpxBoxes& boxes, const JpxSize& size);

} // namespace OrvPdf
