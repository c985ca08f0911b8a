#pragma once

#include <cstdint>
#include <iosfwd>

#include <orv_sys/export.h>

namespace OrvImg
{

/// What hides parts of a picture.
enum class MaskKind : std::uint32_t
{
    None = 0,
    SoftMask = 1,    ///< A picture of opacities (ISO 32000-1, 11.6.5.3).
    StencilMask = 2, ///< A picture of one bit (8.9.6.3).
    ColorKey = 3     ///< Ranges of samples that are not painted (8.9.6.4); no picture.
};

/// The enumerator's name, or the number of another value.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, MaskKind kind);

} // namespace OrvImg
