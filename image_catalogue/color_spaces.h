#pragma once

#include <cstdint>

#include <orv_img/color_space.h>

namespace HarrowSupport::GenerateImage
{

/// The colour space of a kind, which is given by its number. Each calibrated space comes twice: with a usual
/// white and no distortion, and with values that no space in use has, so that a mix-up of two of them shows.
/// Numbers from 12 on, also those that no kind has, are DeviceN.
OrvImg::ColorSpace MakeColorSpace(std::uint32_t kind);

} // namespace HarrowSupport::GenerateImage
