// What the components of a colour space say as tints of separations.

#include "orv_color/color_space_state.h"

#include <cmath>

namespace OrvColor
{

namespace
{

using State = ColorSpace::State;
using Family = ColorSpace::Family;

// A NaN counts as the lower end, as nothing can be said of it.
double Clamp(double value, const std::array<double, 2>& range)
{
    if (!(value > range[0]))
        return range[0];
    return value > range[1] ? range[1] : value;
}

double ComponentOf(const State& state, const std::vector<float>& components, std::size_t index)
{
    const float value = index < components.size() ? components[index] : state.initialComponents[index];
    return Clamp(value, state.ranges[index]);
}

float TintOf(const State& state, const std::vector<float>& components, std::size_t index)
{
    const auto [low, high] = state.ranges[index];
    if (!(high > low))
        return 0.0f;
    return static_cast<float>((ComponentOf(state, components, index) - low) / (high - low));
}

std::vector<float> LookUp(const State& state, const std::vector<float>& components)
{
    const auto index = static_cast<std::size_t>(std::lround(ComponentOf(state, components, 0)));
    const auto& ranges = state.base->GetRanges();
    std::vector<float> found;
    for (std::size_t component = 0; component < ranges.size(); ++component) {
        const std::size_t place = index * ranges.size() + component;
        const double sample =
            place < state.table.size() ? static_cast<unsigned char>(state.table[place]) / 255.0 : 0.0;
        found.push_back(static_cast<float>(ranges[component][0] +
                                           sample * (ranges[component][1] - ranges[component][0])));
    }
    return found;
}

void AddTints(const State& state, const std::vector<float>& components, bool skipZeros,
              ColorList<ColorPolicy>& list)
{
    for (std::size_t index = 0; index < state.componentCount; ++index) {
        const std::string& name = state.componentNames[index];
        const float tint = TintOf(state, components, index);
        if (skipZeros && tint == 0.0f)
            continue;
        if (!state.colorantNames.empty() && name == "None")
            continue;
        list.entries.push_back({tint, name});
    }
}

} // namespace

ColorList<ColorPolicy> ColorSpace::ToColorList(const std::vector<float>& components, bool overprint,
                                               bool nonzeroOverprint) const
{
    ColorList<ColorPolicy> list;
    list.overprint = overprint;
    switch (state->family) {
    case Family::DeviceGray:
        list.Add(state->componentNames[0], 1.0f - TintOf(*state, components, 0));
        break;
    case Family::DeviceCMYK:
        AddTints(*state, components, overprint && nonzeroOverprint, list);
        break;
    case Family::Separation:
        list.all = state->colorantNames[0] == "All";
        if (list.all)
            list.valueForAll = TintOf(*state, components, 0);
        else
            AddTints(*state, components, false, list);
        break;
    case Family::Indexed:
        // Overprint mode 1 is for colours that are given in DeviceCMYK itself.
        return state->base->ToColorList(LookUp(*state, components), overprint, false);
    case Family::Pattern:
        return state->base ? state->base->ToColorList(components, overprint, nonzeroOverprint) : list;
    default:
        AddTints(*state, components, false, list);
        break;
    }
    return list;
}

} // namespace OrvColor
