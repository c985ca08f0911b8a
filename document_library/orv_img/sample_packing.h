#pragma once

#include <cstddef>

namespace OrvImg::Detail
{

/// The sample at a place of a packed row (ISO 32000-1, 8.9.5.2), for depths of 1, 2, 4, 8 and 16 bits.
inline std::size_t ReadSample(const unsigned char* row, std::size_t index, std::size_t bits)
{
    if (bits == 8)
        return row[index];
    if (bits == 16)
        return static_cast<std::size_t>(row[2 * index]) << 8 | row[2 * index + 1];
    const std::size_t perByte = 8 / bits;
    const std::size_t shift = (perByte - 1 - index % perByte) * bits;
    return static_cast<std::size_t>(row[index / perByte]) >> shift & ((std::size_t{1} << bits) - 1);
}

/// Sets the sample at a place of a packed row whose bits there are zero.
inline void WriteSample(unsigned char* row, std::size_t index, std::size_t bits, std::size_t value)
{
    if (bits == 16) {
        row[2 * index] = static_cast<unsigned char>(value >> 8);
        row[2 * index + 1] = static_cast<unsigned char>(value);
        return;
    }
    const std::size_t perByte = 8 / bits;
    const std::size_t shift = (perByte - 1 - index % perByte) * bits;
    row[index / perByte] = static_cast<unsigned char>(row[index / perByte] | value << shift);
}

inline std::size_t HighestSample(std::size_t bits)
{
    return (std::size_t{1} << bits) - 1;
}

} // namespace OrvImg::Detail
