#pragma once

#include <orv_color/color_policies.h>

#include <array>
#include <cmath>

namespace HarrowSupport::Comparators
{

/// How far two decode numbers, or two colours of tables, may be apart: 2 to the power of -17, half a step of
/// a 16-bit sample. The bound itself is too far.
constexpr double decodeTolerance = 7.62939453125e-06;

/// Whether both ends of two decode ranges agree to within the tolerance.
inline bool DecodeRangesAgree(const std::array<double, 2>& left, const std::array<double, 2>& right)
{
    return std::fabs(left[0] - right[0]) < decodeTolerance && std::fabs(left[1] - right[1]) < decodeTolerance;
}

/// Whether two values name the same channel, and decode it alike if they name one.
inline bool NameTheSameChannel(const OrvColor::ChannelMappingPolicy::Value& left,
                               const OrvColor::ChannelMappingPolicy::Value& right)
{
    return left.index == right.index &&
           (left.index == OrvColor::Unmapped || DecodeRangesAgree(left.decode, right.decode));
}

} // namespace HarrowSupport::Comparators
