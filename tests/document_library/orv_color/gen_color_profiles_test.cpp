#include <orv_color/gen_color_profiles.h>

#include "orv_color/profile_builder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <memory>
#include <thread>
#include <vector>

#include <lcms2.h>

namespace OrvColor
{
namespace
{

using Lab = std::array<double, 3>;

// Looks through a profile as another program would: components as doubles in, L*a*b* out.
template <typename Input>
Lab ToLab(const ICCProfile& profile, cmsUInt32Number format, const Input& components)
{
    cmsHPROFILE source = cmsOpenProfileFromMem(profile.GetData().data(),
                                               static_cast<cmsUInt32Number>(profile.GetData().size()));
    cmsHPROFILE target = cmsCreateLab4Profile(nullptr);
    cmsHTRANSFORM transform = cmsCreateTransform(source, format, target, TYPE_Lab_DBL,
                                                 INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
    Lab lab = {-1.0, -1.0, -1.0};
    if (transform) {
        cmsDoTransform(transform, components.data(), lab.data(), 1);
        cmsDeleteTransform(transform);
    }
    cmsCloseProfile(source);
    cmsCloseProfile(target);
    return lab;
}

template <typename Output>
Output FromLab(const ICCProfile& profile, cmsUInt32Number format, const Lab& lab)
{
    cmsHPROFILE target = cmsOpenProfileFromMem(profile.GetData().data(),
                                               static_cast<cmsUInt32Number>(profile.GetData().size()));
    cmsHPROFILE source = cmsCreateLab4Profile(nullptr);
    cmsHTRANSFORM transform = cmsCreateTransform(source, TYPE_Lab_DBL, target, format,
                                                 INTENT_RELATIVE_COLORIMETRIC, cmsFLAGS_NOCACHE);
    Output components = {};
    if (transform) {
        cmsDoTransform(transform, lab.data(), components.data(), 1);
        cmsDeleteTransform(transform);
    }
    cmsCloseProfile(source);
    cmsCloseProfile(target);
    return components;
}

double Distance(const Lab& left, const Lab& right)
{
    return std::hypot(left[0] - right[0], left[1] - right[1], left[2] - right[2]);
}

GenColorProfiles& Profiles()
{
    return GenColorProfiles::Instance();
}

TEST(GenColorProfilesTest, IsOneObject)
{
    EXPECT_EQ(&GenColorProfiles::Instance(), &GenColorProfiles::Instance());
    EXPECT_EQ(Profiles().GetDefaultRgbProfile(true), Profiles().GetDefaultRgbProfile(true));
}

TEST(GenColorProfilesTest, ProfilesAreOfTheirColourModel)
{
    EXPECT_EQ(Profiles().GetDefaultGrayProfile(true)->GetDataColorSpace(), "GRAY");
    EXPECT_EQ(Profiles().GetDefaultRgbProfile(true)->GetDataColorSpace(), "RGB ");
    EXPECT_EQ(Profiles().GetDefaultLabProfile(true)->GetDataColorSpace(), "Lab ");
    EXPECT_EQ(Profiles().GetDefaultCmykProfile(true)->GetDataColorSpace(), "CMYK");
}

TEST(GenColorProfilesTest, BytesAreTheSameWheneverTheyAreMade)
{
    EXPECT_EQ(*Detail::BuildGrayProfile(), *Profiles().GetDefaultGrayProfile(true));
    EXPECT_EQ(*Detail::BuildRgbProfile(), *Profiles().GetDefaultRgbProfile(true));
    EXPECT_EQ(*Detail::BuildLabProfile(), *Profiles().GetDefaultLabProfile(true));
    EXPECT_EQ(*Detail::BuildCmykProfile(), *Profiles().GetDefaultCmykProfile(true));
}

TEST(GenColorProfilesTest, CreationDateIsFixed)
{
    const std::string date("\x07\xD0\0\x01\0\x01\0\0\0\0\0\0", 12);
    EXPECT_EQ(Profiles().GetDefaultCmykProfile(true)->GetData().substr(24, 12), date);
    EXPECT_EQ(Profiles().GetDefaultGrayProfile(true)->GetData().substr(24, 12), date);
}

TEST(GenColorProfilesTest, ClassesAreOnesThatAColourSpaceMayHave)
{
    EXPECT_EQ(Profiles().GetDefaultGrayProfile(true)->GetData().substr(12, 4), "mntr");
    EXPECT_EQ(Profiles().GetDefaultRgbProfile(true)->GetData().substr(12, 4), "mntr");
    EXPECT_EQ(Profiles().GetDefaultLabProfile(true)->GetData().substr(12, 4), "spac");
    EXPECT_EQ(Profiles().GetDefaultCmykProfile(true)->GetData().substr(12, 4), "prtr");
}

TEST(GenColorProfilesTest, GrayRunsFromBlackToWhite)
{
    const auto profile = Profiles().GetDefaultGrayProfile(true);
    EXPECT_LT(Distance(ToLab(*profile, TYPE_GRAY_DBL, std::array<double, 1>{0.0}), {0, 0, 0}), 0.1);
    EXPECT_LT(Distance(ToLab(*profile, TYPE_GRAY_DBL, std::array<double, 1>{1.0}), {100, 0, 0}), 0.1);
}

TEST(GenColorProfilesTest, RgbRedIsThatOfItsPrimaries)
{
    const auto red =
        ToLab(*Profiles().GetDefaultRgbProfile(true), TYPE_RGB_DBL, std::array<double, 3>{1.0, 0.0, 0.0});
    EXPECT_LT(Distance(red, {54.29, 80.81, 69.89}), 0.5);
}

TEST(GenColorProfilesTest, LabIsTheIdentity)
{
    const auto profile = Profiles().GetDefaultLabProfile(true);
    for (const Lab& lab : {Lab{0, 0, 0}, Lab{100, 0, 0}, Lab{50, -60, 70}})
        EXPECT_LT(Distance(ToLab(*profile, TYPE_Lab_DBL, lab), lab), 0.1);
}

TEST(GenColorProfilesTest, CmykWithoutInkIsPaper)
{
    const auto profile = Profiles().GetDefaultCmykProfile(true);
    EXPECT_LT(Distance(ToLab(*profile, TYPE_CMYK_DBL, std::array<double, 4>{0, 0, 0, 0}), {100, 0, 0}), 0.1);
}

TEST(GenColorProfilesTest, CmykSolidsLookLikeTheirInks)
{
    const auto profile = Profiles().GetDefaultCmykProfile(true);
    const auto solid = [&](std::size_t ink) {
        std::array<double, 4> percent = {};
        percent[ink] = 100.0;
        return ToLab(*profile, TYPE_CMYK_DBL, percent);
    };
    EXPECT_GT(solid(0)[0], 50.0); // Cyan: greenish blue.
    EXPECT_LT(solid(0)[1], -15.0);
    EXPECT_LT(solid(0)[2], -30.0);
    EXPECT_GT(solid(1)[1], 60.0); // Magenta: red without yellow.
    EXPECT_LT(std::fabs(solid(1)[2]), 10.0);
    EXPECT_GT(solid(2)[0], 85.0); // Yellow: light.
    EXPECT_GT(solid(2)[2], 80.0);
    EXPECT_LT(Distance(solid(3), {16, 0, 0}), 1.0);
}

TEST(GenColorProfilesTest, CmykSeparationShowsTheColourAgain)
{
    const auto profile = Profiles().GetDefaultCmykProfile(true);
    for (const Lab& lab :
         {Lab{100, 0, 0}, Lab{70, 0, 0}, Lab{30, 0, 0}, Lab{60, 20, 20}, Lab{50, -20, -20}}) {
        const auto inks = FromLab<std::array<double, 4>>(*profile, TYPE_CMYK_DBL, lab);
        EXPECT_LT(Distance(ToLab(*profile, TYPE_CMYK_DBL, inks), lab), 3.0)
            << lab[0] << " " << lab[1] << " " << lab[2] << " by " << testing::PrintToString(inks);
    }
}

TEST(GenColorProfilesTest, ThreadsGetTheSameObject)
{
    std::vector<std::shared_ptr<const ICCProfile>> profiles(4);
    std::vector<std::thread> threads;
    for (auto& profile : profiles)
        threads.emplace_back([&profile] { profile = Profiles().GetDefaultLabProfile(true); });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& profile : profiles)
        EXPECT_EQ(profile, profiles[0]);
    EXPECT_NE(profiles[0], nullptr);
}

} // namespace
} // namespace OrvColor
