#include "generation/shading_function.h"

#include <algorithm>
#include <utility>

#include <orv_color/color_functions.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>

namespace HarrowSupport
{

using Colors = std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>>;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;

namespace
{

OrvPaint::ExponentialFunction::Factory MakeSegment(const Colors& colors, std::size_t index,
                                                   const std::vector<double>& midpoints,
                                                   const Mapping& mapping)
{
    const double exponent = OrvPaint::MidpointToExponent(midpoints[index]);
    return OrvPaint::ExponentialFunction::Factory(OrvColor::GetComponents(colors[index], mapping),
                                                  OrvColor::GetComponents(colors[index + 1], mapping),
                                                  exponent);
}

} // namespace

Mapping MakeSeparationMapping(const Colors& colors)
{
    Mapping mapping;
    mapping.overprint = colors[0].overprint;
    mapping.all = colors[0].all;
    if (mapping.all) {
        mapping.valueForAll = 0;
        return mapping;
    }
    for (const auto& color : colors) {
        for (const auto& entry : color.entries) {
            const bool isThere = std::any_of(mapping.entries.begin(), mapping.entries.end(),
                                             [&](const auto& mapped) { return mapped.name == entry.name; });
            if (!isThere)
                mapping.Add(entry.name, mapping.entries.size());
        }
    }
    return mapping;
}

std::shared_ptr<const OrvPaint::Function>
MakeShadingFunction(const Colors& colors, std::vector<double> bounds, const std::vector<double>& midpoints,
                    std::vector<std::array<double, 2>> encode, const Mapping& mapping)
{
    const std::size_t segments = colors.size() - 1;
    if (segments == 1 && encode[0] == std::array<double, 2>{0.0, 1.0})
        return MakeSegment(colors, 0, midpoints, mapping).SetDomain({bounds[0], bounds[1]}).Get();

    std::vector<std::shared_ptr<const OrvPaint::Function>> functions;
    functions.reserve(segments);
    for (std::size_t index = 0; index < segments; ++index)
        functions.push_back(MakeSegment(colors, index, midpoints, mapping).Get());
    return OrvPaint::StitchingFunction::Factory(std::move(functions), std::move(bounds))
        .SetEncode(std::move(encode))
        .Get();
}

} // namespace HarrowSupport
