#pragma once

#include <array>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_color/component.h>
#include <orv_sys/export.h>

namespace OrvColor
{

/// The tints of a colour as a function's output: at each mapped index of `mapping` the tint of that
/// separation, 0 if the colour doesn't have it. As long as the highest index asks for.
///
/// A mapping of all separations gives the colour's value for all at the mapping's index. A colour of all
/// separations gives its value for all at each mapped index. Of two entries with one name the first counts.
ORV_EXPORT std::vector<Component> GetComponents(const ColorList<ColorPolicy>& color,
                                                const ColorList<SeparationMappingPolicy>& mapping);

/// The decode range that does what `first` does and then what `second` does. A range (low, high) takes x
/// to low + x * (high - low).
ORV_EXPORT std::array<double, 2> Concatenate(const std::array<double, 2>& first,
                                             const std::array<double, 2>& second);

} // namespace OrvColor
