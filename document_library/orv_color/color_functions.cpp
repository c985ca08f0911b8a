#include <orv_color/color_functions.h>

namespace OrvColor
{

namespace
{

float TintOf(const ColorList<ColorPolicy>& color, const std::string& name)
{
    if (color.all)
        return color.valueForAll;
    for (const auto& entry : color.entries) {
        if (entry.name == name)
            return entry.value;
    }
    return 0.0f;
}

void Place(std::vector<Component>& components, std::size_t index, float tint)
{
    if (index == Unmapped)
        return;
    if (components.size() <= index)
        components.resize(index + 1);
    components[index] = tint;
}

} // namespace

std::vector<Component> GetComponents(const ColorList<ColorPolicy>& color,
                                     const ColorList<SeparationMappingPolicy>& mapping)
{
    std::vector<Component> components;
    if (mapping.all) {
        Place(components, mapping.valueForAll, color.valueForAll);
        return components;
    }
    for (const auto& entry : mapping.entries)
        Place(components, entry.value, TintOf(color, entry.name));
    return components;
}

std::array<double, 2> Concatenate(const std::array<double, 2>& first, const std::array<double, 2>& second)
{
    const double width = second[1] - second[0];
    return {second[0] + first[0] * width, second[0] + first[1] * width};
}

} // namespace OrvColor
