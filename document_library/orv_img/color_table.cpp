#include <orv_img/color_table.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

#include "orv_img/sample_packing.h"

namespace OrvImg
{

namespace
{

// A file has a decode range in steps of a sample: the way there and back costs a rounding at each end.
constexpr double RoundingTolerance = 1e-12;

bool AreSameRanges(const std::array<double, 2>& left, const std::array<double, 2>& right)
{
    return std::fabs(left[0] - right[0]) <= RoundingTolerance &&
           std::fabs(left[1] - right[1]) <= RoundingTolerance;
}

} // namespace

ColorTable::ColorTable(const unsigned char* data, std::size_t entries, std::size_t givenChannels,
                       std::size_t bits, const std::array<double, 2>& givenDecode)
    : channels(givenChannels), decode(givenDecode)
{
    if (bits != 8)
        throw std::invalid_argument("The channels of a colour table have 8 bits, not " +
                                    std::to_string(bits) + ".");
    if (entries == 0 || channels == 0)
        throw std::invalid_argument("A colour table needs an entry and a channel.");
    colors.assign(data, data + entries * channels);
}

ColorTable::~ColorTable() = default;

void ColorTable::GetColor(std::size_t position, std::size_t, unsigned char* destination) const
{
    const std::size_t entry = std::min(position, GetEntryCount() - 1);
    std::copy_n(colors.data() + entry * channels, channels, destination);
}

std::size_t ColorTable::GetPosition(std::size_t sample, std::size_t bits) const
{
    const auto highest = static_cast<double>(Detail::HighestSample(bits));
    const double position = (decode[1] - decode[0]) * static_cast<double>(sample) + decode[0] * highest + 0.5;
    return static_cast<std::size_t>(std::floor(std::clamp(position, 0.0, highest)));
}

void ColorTable::MapIndexedBuffer(unsigned char* destination, const unsigned char* source, std::size_t bits,
                                  std::size_t width, std::size_t gap) const
{
    // One colour for each sample that can occur, but not more than there are samples.
    std::vector<std::size_t> positions;
    if (bits <= 8 && width > Detail::HighestSample(bits)) {
        for (std::size_t sample = 0; sample <= Detail::HighestSample(bits); ++sample)
            positions.push_back(GetPosition(sample, bits));
    }
    for (std::size_t column = 0; column < width; ++column) {
        const std::size_t sample = Detail::ReadSample(source, column, bits);
        GetColor(positions.empty() ? GetPosition(sample, bits) : positions[sample], bits, destination);
        destination += channels + gap;
    }
}

bool operator==(const ColorTable& left, const ColorTable& right)
{
    return left.channels == right.channels && left.colors == right.colors &&
           AreSameRanges(left.decode, right.decode);
}

} // namespace OrvImg
