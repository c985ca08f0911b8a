#pragma once

#include <memory>

#include <orv_color/icc_profile.h>
#include <orv_sys/export.h>

namespace OrvColor
{

/// Built-in profiles, one for each colour model. Each is made at its first use and then handed out again: the
/// same object, with the same bytes in every process. Any number of threads may ask.
class ORV_EXPORT GenColorProfiles
{
public:
    /// The one object.
    static GenColorProfiles& Instance();

    GenColorProfiles(const GenColorProfiles&) = delete;
    GenColorProfiles& operator=(const GenColorProfiles&) = delete;

    /// Never null. The argument tells whether a profile may be made if there is none yet; these profiles
    /// always can be, so that it changes nothing.
    ///
    /// Gray: white D50, gamma 2.2.
    std::shared_ptr<const ICCProfile> GetDefaultGrayProfile(bool create) const;

    /// The primaries and the curve of sRGB (IEC 61966-2-1).
    std::shared_ptr<const ICCProfile> GetDefaultRgbProfile(bool create) const;

    /// The identity on CIE L*a*b* for D50, version 2.
    std::shared_ptr<const ICCProfile> GetDefaultLabProfile(bool create) const;

    /// A printer's profile of four inks that mix by Neugebauer's equations: the overprints of the solids
    /// are the products of typical solid inks, the tints between are linear. It is good for showing CMYK
    /// plausibly and tells nothing about any press.
    std::shared_ptr<const ICCProfile> GetDefaultCmykProfile(bool create) const;

private:
    GenColorProfiles() = default;
};

} // namespace OrvColor
