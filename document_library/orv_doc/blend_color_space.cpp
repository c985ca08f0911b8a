#include <orv_doc/blend_color_space.h>

#include <ostream>
#include <stdexcept>
#include <string>
#include <utility>

#include <orv_color/color_space.h>

namespace OrvDoc
{

namespace
{

using Family = OrvColor::ColorSpace::Family;

const char* GetFamilyName(Family family)
{
    switch (family) {
    case Family::DeviceGray:
        return "DeviceGray";
    case Family::DeviceRGB:
        return "DeviceRGB";
    case Family::DeviceCMYK:
        return "DeviceCMYK";
    case Family::CalGray:
        return "CalGray";
    case Family::CalRGB:
        return "CalRGB";
    case Family::Lab:
        return "Lab";
    case Family::ICCBased:
        return "ICCBased";
    case Family::Separation:
        return "Separation";
    case Family::DeviceN:
        return "DeviceN";
    case Family::Indexed:
        return "Indexed";
    case Family::Pattern:
        return "Pattern";
    }
    return "Unknown";
}

bool IsDevice(Family family)
{
    return family == Family::DeviceGray || family == Family::DeviceRGB || family == Family::DeviceCMYK;
}

bool CanBlend(Family family)
{
    return IsDevice(family) || family == Family::CalGray || family == Family::CalRGB ||
           family == Family::ICCBased;
}

} // namespace

BlendColorSpace::BlendColorSpace(std::shared_ptr<const OrvColor::ColorSpace> givenSpace)
    : space(std::move(givenSpace))
{
    if (space && !CanBlend(space->GetFamily()))
        throw std::invalid_argument(std::string("Colours can't be blended in a space of the family ") +
                                    GetFamilyName(space->GetFamily()) + ".");
}

bool operator==(const BlendColorSpace& left, const BlendColorSpace& right)
{
    const OrvColor::ColorSpace* const leftSpace = left.GetColorSpace().get();
    const OrvColor::ColorSpace* const rightSpace = right.GetColorSpace().get();
    return leftSpace == rightSpace || (leftSpace && rightSpace && *leftSpace == *rightSpace);
}

bool operator!=(const BlendColorSpace& left, const BlendColorSpace& right)
{
    return !(left == right);
}

std::ostream& operator<<(std::ostream& stream, const BlendColorSpace& space)
{
    if (!space.GetColorSpace())
        return stream << "None";
    const OrvColor::ColorSpace& colorSpace = *space.GetColorSpace();
    std::string text = GetFamilyName(colorSpace.GetFamily());
    if (!IsDevice(colorSpace.GetFamily()))
        text += "(" + colorSpace.GetDefinition().GetDigestText() + ")";
    return stream << text;
}

} // namespace OrvDoc
