#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include <boost/optional.hpp>

#include <orv_sys/export.h>

namespace OrvBlend
{

/// How a source colour and a backdrop colour become one (ISO 32000-1, 11.3.5): the separable modes, then the
/// others.
enum class BlendMode : std::uint32_t
{
    Normal = 0,
    Multiply,
    Screen,
    Overlay,
    Darken,
    Lighten,
    ColorDodge,
    ColorBurn,
    HardLight,
    SoftLight,
    Difference,
    Exclusion,
    Hue,
    Saturation,
    Color,
    Luminosity
};

/// The PDF name without its slash; nothing for a value that is not listed above.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, BlendMode mode);

// For makers of documents.

/// The mode of that PDF name, or nothing. The old name Compatible means Normal.
ORV_EXPORT boost::optional<BlendMode> FindBlendMode(const std::string& name);

} // namespace OrvBlend
