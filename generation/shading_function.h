#pragma once

#include <array>
#include <memory>
#include <vector>

#include <orv_color/color_list.h>
#include <orv_paint/function.h>

namespace HarrowSupport
{

/// The separations of a list of colours, numbered in the order of first appearance. Overprint and the flag
/// for all separations are those of the first colour alone; with the latter, all is index 0 and nothing has a
/// name.
OrvColor::ColorList<OrvColor::SeparationMappingPolicy>
MakeSeparationMapping(const std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>>& colors);

/// The function from colour to colour, with a component for each index of the mapping. Two colours with an
/// `encode[0]` of exactly (0, 1) give an exponential function with the first two bounds as its domain;
/// anything else gives a stitching function with an exponential function for each segment.
std::shared_ptr<const OrvPaint::Function>
MakeShadingFunction(const std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>>& colors,
                    std::vector<double> bounds, const std::vector<double>& midpoints,
                    std::vector<std::array<double, 2>> encode,
                    const OrvColor::ColorList<OrvColor::SeparationMappingPolicy>& mapping);

} // namespace HarrowSupport
