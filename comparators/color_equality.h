#pragma once

#include <orv_color/color_list.h>

#include <cmath>

namespace HarrowSupport::Comparators
{

/// How far two colour components may be apart. Tints are written to files with fewer digits than a float
/// holds.
constexpr float componentTolerance = 1e-5f;

/// Whether two components are closer than the tolerance, in float arithmetic. A NaN is close to nothing.
inline bool ComponentsMatch(float left, float right)
{
    return std::fabs(left - right) < componentTolerance;
}

/// Whether two lists are the same colour. Both stand for all separations, with the same tint; or neither
/// does, and each name of the left list occurs in the right one with the same tint, with as many entries on
/// both sides. The order of the entries plays no part, and a right entry may serve several left ones.
/// Overprint counts.
bool ColorListsEqual(const OrvColor::ColorList<OrvColor::ColorPolicy>& left,
                     const OrvColor::ColorList<OrvColor::ColorPolicy>& right);

} // namespace HarrowSupport::Comparators
