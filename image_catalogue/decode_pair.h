#pragma once

#include <harrow_support/generate_image.h>

#include <array>

namespace HarrowSupport::GenerateImage
{

/// Low and high of a decode range; (0, 0) for a value that no kind has.
std::array<double, 2> GetDecodePair(DecodeKind kind);

} // namespace HarrowSupport::GenerateImage
