#pragma once

#include <orv_img/color_space.h>

namespace HarrowSupport::Comparators
{

/// Whether two colour spaces are of one family and, if they are calibrated, have exactly the same numbers or
/// the same profile. All Lab spaces are equal, whatever their numbers.
bool CompareColorSpaces(const OrvImg::ColorSpace& left, const OrvImg::ColorSpace& right);

} // namespace HarrowSupport::Comparators
