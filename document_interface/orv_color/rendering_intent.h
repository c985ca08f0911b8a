#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>

#include <boost/optional.hpp>

#include <orv_sys/export.h>

namespace OrvColor
{

/// How colours that a device can't show are brought into its gamut (ISO 32000-1, Table 70).
enum class RenderingIntent : std::uint32_t
{
    AbsoluteColorimetric = 0,
    RelativeColorimetric = 1, ///< What counts where a file says nothing.
    Saturation = 2,
    Perceptual = 3
};

/// The PDF name without its slash; nothing for a value that is not listed above.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, RenderingIntent intent);

// For makers of documents.

/// The intent of that PDF name, or nothing.
ORV_EXPORT boost::optional<RenderingIntent> FindRenderingIntent(const std::string& name);

} // namespace OrvColor
