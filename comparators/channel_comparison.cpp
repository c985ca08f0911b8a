#include "channel_comparison.h"

#include "sample_reading.h"

#include <cmath>

namespace HarrowSupport::Comparators
{

namespace
{

using Part = DecodedChannel::Part;

template <std::size_t bits>
double NumberAt(const Part& part, std::size_t i)
{
    return part.table[ReadSample(part.row, part.first + i * part.step, bits)];
}

/// Numbers that go from the table into the difference cost half of those that are written down in between.
template <std::size_t leftBits, std::size_t rightBits>
bool PartsAgree(const Part& left, const Part& right, double tolerance)
{
    std::size_t apart = 0;
    for (std::size_t i = 0; i < left.count; ++i)
        apart += std::fabs(NumberAt<leftBits>(left, i) - NumberAt<rightBits>(right, i)) > tolerance ? 1 : 0;
    return apart == 0;
}

bool HasTable(const Part& part, std::size_t bits)
{
    return part.table != nullptr && part.bits == bits;
}

} // namespace

bool ChannelsAgree(const DecodedChannel& left, const DecodedChannel& right, const PixelRange& pixels,
                   double tolerance)
{
    const Part leftPart = left.Find(pixels.row, pixels.column, pixels.count);
    const Part rightPart = right.Find(pixels.row, pixels.column, pixels.count);
    if (HasTable(leftPart, 8) && HasTable(rightPart, 8))
        return PartsAgree<8, 8>(leftPart, rightPart, tolerance);
    if (HasTable(leftPart, 16) && HasTable(rightPart, 16))
        return PartsAgree<16, 16>(leftPart, rightPart, tolerance);
    if (HasTable(leftPart, 8) && HasTable(rightPart, 16))
        return PartsAgree<8, 16>(leftPart, rightPart, tolerance);
    if (HasTable(leftPart, 16) && HasTable(rightPart, 8))
        return PartsAgree<16, 8>(leftPart, rightPart, tolerance);

    Numbers leftNumbers;
    Numbers rightNumbers;
    left.Decode(leftPart, leftNumbers.data());
    right.Decode(rightPart, rightNumbers.data());
    std::size_t apart = 0;
    for (std::size_t i = 0; i < pixels.count; ++i)
        apart += std::fabs(leftNumbers[i] - rightNumbers[i]) > tolerance ? 1 : 0;
    return apart == 0;
}

bool WeighedChannelsAgree(const DecodedChannel& left, const DecodedChannel& right, const Numbers& leftWeights,
                          const Numbers& rightWeights, const PixelRange& pixels, double tolerance)
{
    Numbers leftNumbers;
    Numbers rightNumbers;
    left.Decode(left.Find(pixels.row, pixels.column, pixels.count), leftNumbers.data());
    right.Decode(right.Find(pixels.row, pixels.column, pixels.count), rightNumbers.data());
    std::size_t apart = 0;
    for (std::size_t i = 0; i < pixels.count; ++i) {
        const double difference = leftNumbers[i] * leftWeights[i] - rightNumbers[i] * rightWeights[i];
        apart += std::fabs(difference) > tolerance ? 1 : 0;
    }
    return apart == 0;
}

} // namespace HarrowSupport::Comparators
