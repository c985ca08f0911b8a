#include <orv_color/rendering_intent.h>

#include <ostream>

namespace OrvColor
{

namespace
{

// In the order of the enumerators.
constexpr const char* Names[] = {"AbsoluteColorimetric", "RelativeColorimetric", "Saturation", "Perceptual"};

} // namespace

std::ostream& operator<<(std::ostream& stream, RenderingIntent intent)
{
    const auto index = static_cast<std::size_t>(intent);
    if (index < std::size(Names))
        stream << Names[index];
    return stream;
}

boost::optional<RenderingIntent> FindRenderingIntent(const std::string& name)
{
    for (std::uint32_t index = 0; index < std::size(Names); ++index) {
        if (name == Names[index])
            return static_cast<RenderingIntent>(index);
    }
    return boost::none;
}

} // namespace OrvColor
