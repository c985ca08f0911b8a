#include "transformation_equality.h"

#include <cmath>
#include <cstdint>
#include <cstring>

namespace HarrowSupport::Comparators
{

namespace
{

constexpr double unitsInTheLastPlace = 5.0;

/// Unsigned, since the differences below may wrap around.
std::uint64_t OrderedBits(double number)
{
    constexpr std::uint64_t signBit = std::uint64_t{1} << 63;
    std::uint64_t bits = 0;
    static_assert(sizeof bits == sizeof number);
    std::memcpy(&bits, &number, sizeof bits);
    return (bits & signBit) != 0 ? signBit - bits : bits;
}

} // namespace

bool NumbersNearlyEqual(double left, double right)
{
    const auto difference = static_cast<std::int64_t>(OrderedBits(left) - OrderedBits(right));
    return unitsInTheLastPlace >= std::fabs(static_cast<double>(difference));
}

} // namespace HarrowSupport::Comparators
