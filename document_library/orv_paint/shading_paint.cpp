#include <orv_paint/shading_paint.h>

#include <stdexcept>
#include <utility>

#include "orv_paint/colorants.h"

namespace OrvPaint
{

using OrvColor::ColorSpace;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;

namespace
{

/// The names of components that are colorants as they stand in the file.
void AddColorants(const ColorSpace& space, Mapping& mapping)
{
    const std::vector<std::string>& names = space.GetColorantNames();
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (names[index] != "None")
            mapping.Add(names[index], index);
    }
}

} // namespace

ShadingPaint::ShadingPaint(Type givenType, Common givenCommon)
    : Paint(givenType), common(std::move(givenCommon))
{}

ShadingPaint::~ShadingPaint() = default;

OrvColor::ColorList<OrvColor::ColorantPolicy> ShadingPaint::GetColorants() const
{
    return Detail::GetColorantsOf(common.mapping);
}

Mapping MakeSeparationMapping(const ColorSpace& space, bool overprint)
{
    Mapping mapping;
    mapping.overprint = overprint;
    switch (space.GetFamily()) {
    case ColorSpace::Family::Pattern:
    case ColorSpace::Family::Indexed:
        throw std::invalid_argument("A shading can't be in a pattern or indexed colour space.");
    case ColorSpace::Family::DeviceGray:
        // Its number is the light and not the ink, and a function can't be turned round on the way.
        mapping.Add("DeviceGray Gray", 0);
        break;
    case ColorSpace::Family::Separation:
        mapping.all = space.GetColorantNames().front() == "All";
        if (mapping.all)
            mapping.valueForAll = 0;
        else
            AddColorants(space, mapping);
        break;
    case ColorSpace::Family::DeviceN:
        AddColorants(space, mapping);
        break;
    default:
        for (const auto& entry : space.ToColorList(space.GetInitialComponents(), false, false).entries)
            mapping.Add(entry.name, mapping.entries.size());
        break;
    }
    return mapping;
}

} // namespace OrvPaint
