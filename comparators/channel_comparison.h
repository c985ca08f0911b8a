#pragma once

#include "channel_decoding.h"

#include <array>
#include <cstddef>

/// The numbers of two channels side by side, a block of a row at a time. The blocks are looked at as a whole
/// and keep no place, so that compilers turn the loops into vectors.
namespace HarrowSupport::Comparators
{

/// Pixels of a block: few enough that the numbers of both sides stay in the processor's nearest cache.
constexpr std::size_t blockSize = 256;
using Numbers = std::array<double, blockSize>;

/// Part of a row, of at most blockSize pixels.
struct PixelRange
{
    std::size_t row;
    std::size_t column; ///< Of the first one.
    std::size_t count;
};

/// Whether no two numbers are further apart than the tolerance. What is no number is not apart from anything.
bool ChannelsAgree(const DecodedChannel& left, const DecodedChannel& right, const PixelRange& pixels,
                   double tolerance);

/// The same for the products with the weights of the pixels.
bool WeighedChannelsAgree(const DecodedChannel& left, const DecodedChannel& right, const Numbers& leftWeights,
                          const Numbers& rightWeights, const PixelRange& pixels, double tolerance);

} // namespace HarrowSupport::Comparators
