#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace OrvPdf
{

/// The number in `count` bytes, at most 8, from the highest. The bytes have to be there.
inline std::uint64_t BigEndian(std::string_view bytes, std::size_t at, std::size_t count)
{
    std::uint64_t value = 0;
    for (std::size_t i = at; i < at + count; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

} // namespace OrvPdf
