#pragma once

#include <memory>

#include <orv_color/icc_profile.h>

namespace OrvColor::Detail
{

// Each call makes a new profile, of ICC version 2, which every reader of PDF 1.3 and later understands. The
// bytes depend on nothing but the code: the creation date is fixed. Throws std::runtime_error if a profile
// can't be made.

std::shared_ptr<const ICCProfile> BuildGrayProfile();
std::shared_ptr<const ICCProfile> BuildRgbProfile();
std::shared_ptr<const ICCProfile> BuildLabProfile();
std::shared_ptr<const ICCProfile> BuildCmykProfile();

} // namespace OrvColor::Detail
