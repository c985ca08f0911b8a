#include "image_catalogue/color_spaces.h"

#include <array>

#include <harrow_support/generate_image.h>
#include <orv_color/gen_color_profiles.h>

namespace HarrowSupport::GenerateImage
{

namespace
{

constexpr std::array<double, 3> NormalWhite = {0.9505, 1.0, 1.089};
constexpr std::array<double, 3> NormalBlack = {0.0, 0.0, 0.0};
constexpr std::array<double, 3> WeirdWhite = {0.7, 1.0, 0.8};
constexpr std::array<double, 3> WeirdBlack = {0.1, 0.2, 0.05};

} // namespace

OrvImg::ColorSpace MakeColorSpace(std::uint32_t kind)
{
    const auto& profiles = OrvColor::GenColorProfiles::Instance();
    switch (static_cast<ColorSpaceKind>(kind)) {
    case ColorSpaceKind::DeviceGray:
        return OrvImg::DeviceGray();
    case ColorSpaceKind::CalGray_Normal:
        return OrvImg::CalGray{NormalWhite, NormalBlack, 1.0};
    case ColorSpaceKind::CalGray_Weird:
        return OrvImg::CalGray{WeirdWhite, WeirdBlack, 1.2};
    case ColorSpaceKind::DeviceRGB:
        return OrvImg::DeviceRGB();
    case ColorSpaceKind::CalRGB_Normal:
        return OrvImg::CalRGB{NormalWhite, NormalBlack, {1.0, 1.0, 1.0}, {1, 0, 0, 0, 1, 0, 0, 0, 1}};
    case ColorSpaceKind::CalRGB_Weird:
        return OrvImg::CalRGB{WeirdWhite, WeirdBlack, {0.9, 1.0, 1.2}, {0, 1, 0, 0, 0, 1, 1, 0, 0}};
    case ColorSpaceKind::Lab_Normal:
        return OrvImg::Lab{NormalWhite, NormalBlack, {-100, 100, -100, 100}};
    case ColorSpaceKind::Lab_Weird:
        return OrvImg::Lab{WeirdWhite, WeirdBlack, {-50, 127, -150, 100}};
    case ColorSpaceKind::ICCBased_Gray:
        return profiles.GetDefaultGrayProfile(true);
    case ColorSpaceKind::ICCBased_RGB:
        return profiles.GetDefaultRgbProfile(true);
    case ColorSpaceKind::ICCBased_Lab:
        return profiles.GetDefaultLabProfile(true);
    case ColorSpaceKind::ICCBased_CMYK:
        return profiles.GetDefaultCmykProfile(true);
    default:
        return OrvImg::DeviceN();
    }
}

} // namespace HarrowSupport::GenerateImage
