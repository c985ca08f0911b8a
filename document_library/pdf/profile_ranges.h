#pragma once

#include <array>
#include <vector>

#include <orv_color/icc_profile.h>

namespace OrvPdf
{

/// The range of each component of an ICCBased space (ISO 32000-1, 8.6.5.5) that decode ranges of the model
/// are relative to, and that is written: that of the ICC's encoding of Lab in 8 bits, and 0 to 1 for all
/// other data.
std::vector<std::array<double, 2>> GetProfileRanges(const OrvColor::ICCProfile& profile);

} // namespace OrvPdf
