#include "pdf/profile_ranges.h"

namespace OrvPdf
{

std::vector<std::array<double, 2>> GetProfileRanges(const OrvColor::ICCProfile& profile)
{
    if (profile.GetDataColorSpace() == "Lab ") {
        return {{0.0, 100.0}, {-128.0, 127.0}, {-128.0, 127.0}};
    }
    return std::vector<std::array<double, 2>>(profile.GetComponentCount(), {0.0, 1.0});
}

} // namespace OrvPdf
