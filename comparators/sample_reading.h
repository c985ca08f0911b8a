#pragma once

#include <cstddef>

namespace HarrowSupport::Comparators
{

/// The sample at a place of a packed row, whose first sample lies in the highest bits of the first byte and
/// whose samples of 16 bits have their high byte first (ISO 32000-1, 8.9.5.2). 0 for other depths than 1, 2,
/// 4, 8 and 16, without a look at the row.
inline std::size_t ReadSample(const unsigned char* row, std::size_t index, std::size_t bits)
{
    switch (bits) {
    case 1:
        return static_cast<std::size_t>(row[index / 8]) >> (7 - index % 8) & 1;
    case 2:
        return static_cast<std::size_t>(row[index / 4]) >> 2 * (3 - index % 4) & 3;
    case 4:
        return static_cast<std::size_t>(row[index / 2]) >> 4 * (1 - index % 2) & 15;
    case 8:
        return row[index];
    case 16:
        return static_cast<std::size_t>(row[2 * index]) << 8 | row[2 * index + 1];
    default:
        return 0;
    }
}

} // namespace HarrowSupport::Comparators
