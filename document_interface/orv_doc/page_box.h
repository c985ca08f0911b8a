#pragma once

#include <cstdint>

namespace OrvDoc
{

/// The boxes of a page (ISO 32000-1, 14.11.2).
enum class PageBox : std::uint32_t
{
    Media = 0,
    Crop = 1,
    Bleed = 2,
    Trim = 3,
    Art = 4,
};

} // namespace OrvDoc
