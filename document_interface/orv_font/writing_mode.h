#pragma once

#include <cstdint>

namespace OrvFont
{

/// The direction in which the characters of a font follow one another (ISO 32000-1, 9.7.4.3).
enum class WritingMode : std::uint32_t
{
    Horizontal = 0,
    Vertical = 1,
};

} // namespace OrvFont
