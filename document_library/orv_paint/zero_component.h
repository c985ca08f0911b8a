#pragma once

#include <cstddef>

#include <orv_paint/function.h>

namespace OrvPaint::Detail
{

/// Whether an output component that the function has is zero once it is clipped to the stated range. A range
/// may leave nothing but zero, and it may lift zero to something else.
inline bool IsZeroInRange(const Function& function, std::size_t component, bool isZeroBeforeClipping)
{
    if (!function.HasRange())
        return isZeroBeforeClipping;
    const auto& range = function.GetRange()[component];
    if (range[0] == 0.0 && range[1] == 0.0)
        return true;
    return isZeroBeforeClipping && range[0] <= 0.0 && range[1] >= 0.0;
}

} // namespace OrvPaint::Detail
