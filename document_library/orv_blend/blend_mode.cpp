#include <orv_blend/blend_mode.h>

#include <iterator>
#include <ostream>

namespace OrvBlend
{

namespace
{

// In the order of the enumerators.
constexpr const char* Names[] = {
    "Normal",    "Multiply",  "Screen",     "Overlay",   "Darken", "Lighten",    "ColorDodge", "ColorBurn",
    "HardLight", "SoftLight", "Difference", "Exclusion", "Hue",    "Saturation", "Color",      "Luminosity"};

} // namespace

std::ostream& operator<<(std::ostream& stream, BlendMode mode)
{
    const auto index = static_cast<std::size_t>(mode);
    if (index < std::size(Names))
        stream << Names[index];
    return stream;
}

boost::optional<BlendMode> FindBlendMode(const std::string& name)
{
    if (name == "Compatible")
        return BlendMode::Normal;
    for (std::uint32_t index = 0; index < std::size(Names); ++index) {
        if (name == Names[index])
            return static_cast<BlendMode>(index);
    }
    return boost::none;
}

} // namespace OrvBlend
