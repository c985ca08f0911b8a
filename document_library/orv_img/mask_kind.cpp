#include <orv_img/mask_kind.h>

#include <ostream>
#include <string>

namespace OrvImg
{

std::ostream& operator<<(std::ostream& stream, MaskKind kind)
{
    switch (kind) {
    case MaskKind::None:
        return stream << "None";
    case MaskKind::SoftMask:
        return stream << "SoftMask";
    case MaskKind::StencilMask:
        return stream << "StencilMask";
    case MaskKind::ColorKey:
        return stream << "ColorKey";
    }
    return stream << std::to_string(static_cast<std::uint32_t>(kind));
}

} // namespace OrvImg
