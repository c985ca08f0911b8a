#include "image_catalogue/put_sample.h"

namespace HarrowSupport::GenerateImage
{

void PutSample(std::uint8_t* row, std::size_t bits, std::size_t index, std::uint64_t value)
{
    switch (bits) {
    case 1:
    case 2:
    case 4: {
        const std::size_t perByte = 8 / bits;
        const std::size_t shift = (perByte - 1 - index % perByte) * bits;
        const unsigned mask = ((1u << bits) - 1) << shift;
        std::uint8_t& byte = row[index / perByte];
        byte = static_cast<std::uint8_t>((byte & ~mask) | ((value << shift) & mask));
        return;
    }
    case 8:
        row[index] = static_cast<std::uint8_t>(value);
        return;
    case 16:
        row[2 * index] = static_cast<std::uint8_t>(value >> 8);
        row[2 * index + 1] = static_cast<std::uint8_t>(value);
        return;
    default:
        return;
    }
}

} // namespace HarrowSupport::GenerateImage
