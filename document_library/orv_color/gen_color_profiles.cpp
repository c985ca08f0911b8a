#include <orv_color/gen_color_profiles.h>

#include "orv_color/profile_builder.h"

namespace OrvColor
{

GenColorProfiles& GenColorProfiles::Instance()
{
    static GenColorProfiles instance;
    return instance;
}

std::shared_ptr<const ICCProfile> GenColorProfiles::GetDefaultGrayProfile(bool) const
{
    static const auto profile = Detail::BuildGrayProfile();
    return profile;
}

std::shared_ptr<const ICCProfile> GenColorProfiles::GetDefaultRgbProfile(bool) const
{
    static const auto profile = Detail::BuildRgbProfile();
    return profile;
}

std::shared_ptr<const ICCProfile> GenColorProfiles::GetDefaultLabProfile(bool) const
{
    static const auto profile = Detail::BuildLabProfile();
    return profile;
}

std::shared_ptr<const ICCProfile> GenColorProfiles::GetDefaultCmykProfile(bool) const
{
    static const auto profile = Detail::BuildCmykProfile();
    return profile;
}

} // namespace OrvColor
