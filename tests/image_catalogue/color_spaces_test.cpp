#include "image_catalogue/color_spaces.h"

#include <array>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <harrow_support/generate_image.h>
#include <orv_color/gen_color_profiles.h>

namespace HarrowSupport::GenerateImage
{
namespace
{

using ::testing::ElementsAre;
using Profile = std::shared_ptr<const OrvColor::ICCProfile>;

OrvImg::ColorSpace SpaceOf(ColorSpaceKind kind)
{
    return MakeColorSpace(static_cast<std::uint32_t>(kind));
}

template <typename Space>
Space GetSpace(ColorSpaceKind kind)
{
    return boost::get<Space>(SpaceOf(kind));
}

TEST(ColorSpaceOfAKind, IsTheAlternativeOfThatName)
{
    const std::array<int, 23> alternatives = {1, 3, 3, 2, 4, 4, 5, 5, 6, 6, 6, 6,
                                              0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    for (std::uint32_t kind = 0; kind < alternatives.size(); ++kind)
        EXPECT_EQ(MakeColorSpace(kind).which(), alternatives[kind]) << kind;
}

TEST(ColorSpaceOfAKind, HasTheUsualWhiteIfNormal)
{
    const auto gray = GetSpace<OrvImg::CalGray>(ColorSpaceKind::CalGray_Normal);
    EXPECT_THAT(gray.whitePoint, ElementsAre(0.9505, 1.0, 1.089));
    EXPECT_THAT(gray.blackPoint, ElementsAre(0.0, 0.0, 0.0));
    EXPECT_EQ(gray.gamma, 1.0);
    const auto rgb = GetSpace<OrvImg::CalRGB>(ColorSpaceKind::CalRGB_Normal);
    EXPECT_THAT(rgb.whitePoint, ElementsAre(0.9505, 1.0, 1.089));
    EXPECT_THAT(rgb.blackPoint, ElementsAre(0.0, 0.0, 0.0));
    EXPECT_THAT(rgb.gamma, ElementsAre(1.0, 1.0, 1.0));
    EXPECT_THAT(rgb.matrix, ElementsAre(1, 0, 0, 0, 1, 0, 0, 0, 1));
    const auto lab = GetSpace<OrvImg::Lab>(ColorSpaceKind::Lab_Normal);
    EXPECT_THAT(lab.whitePoint, ElementsAre(0.9505, 1.0, 1.089));
    EXPECT_THAT(lab.blackPoint, ElementsAre(0.0, 0.0, 0.0));
    EXPECT_THAT(lab.range, ElementsAre(-100, 100, -100, 100));
}

TEST(ColorSpaceOfAKind, HasOddValuesIfWeird)
{
    const auto gray = GetSpace<OrvImg::CalGray>(ColorSpaceKind::CalGray_Weird);
    EXPECT_THAT(gray.whitePoint, ElementsAre(0.7, 1.0, 0.8));
    EXPECT_THAT(gray.blackPoint, ElementsAre(0.1, 0.2, 0.05));
    EXPECT_EQ(gray.gamma, 1.2);
    const auto rgb = GetSpace<OrvImg::CalRGB>(ColorSpaceKind::CalRGB_Weird);
    EXPECT_THAT(rgb.whitePoint, ElementsAre(0.7, 1.0, 0.8));
    EXPECT_THAT(rgb.blackPoint, ElementsAre(0.1, 0.2, 0.05));
    EXPECT_THAT(rgb.gamma, ElementsAre(0.9, 1.0, 1.2));
    EXPECT_THAT(rgb.matrix, ElementsAre(0, 1, 0, 0, 0, 1, 1, 0, 0));
    const auto lab = GetSpace<OrvImg::Lab>(ColorSpaceKind::Lab_Weird);
    EXPECT_THAT(lab.whitePoint, ElementsAre(0.7, 1.0, 0.8));
    EXPECT_THAT(lab.blackPoint, ElementsAre(0.1, 0.2, 0.05));
    EXPECT_THAT(lab.range, ElementsAre(-50, 127, -150, 100));
}

TEST(ColorSpaceOfAKind, HasTheDefaultProfileOfItsModel)
{
    const auto& profiles = OrvColor::GenColorProfiles::Instance();
    EXPECT_EQ(GetSpace<Profile>(ColorSpaceKind::ICCBased_Gray), profiles.GetDefaultGrayProfile(true));
    EXPECT_EQ(GetSpace<Profile>(ColorSpaceKind::ICCBased_RGB), profiles.GetDefaultRgbProfile(true));
    EXPECT_EQ(GetSpace<Profile>(ColorSpaceKind::ICCBased_Lab), profiles.GetDefaultLabProfile(true));
    EXPECT_EQ(GetSpace<Profile>(ColorSpaceKind::ICCBased_CMYK), profiles.GetDefaultCmykProfile(true));
}

} // namespace
} // namespace HarrowSupport::GenerateImage
