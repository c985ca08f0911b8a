// What the colorants of a colour space look like where their inks are not at hand.

#include "orv_color/color_space_state.h"
#include "orv_color/function_numbers.h"
#include "orv_color/tint_transform.h"

#include <stdexcept>
#include <utility>

namespace OrvColor
{

namespace
{

using State = ColorSpace::State;
using Family = ColorSpace::Family;

std::vector<Component> Scale(const ColorSpace& space, const std::vector<double>& values, bool toUnit)
{
    std::vector<Component> components;
    for (std::size_t index = 0; index < values.size(); ++index) {
        const auto& range = space.GetRanges()[index];
        const double value = Detail::ClampTo(values[index], range);
        components.push_back(
            static_cast<float>(toUnit ? Detail::Interpolate(value, range, {0.0, 1.0}) : value));
    }
    return components;
}

Representation Represent(const ColorSpace& space, bool lab, const std::vector<double>& values)
{
    Representation representation;
    const bool simple = space.IsDeviceIndependent() || space.GetFamily() == Family::DeviceGray ||
                        space.GetFamily() == Family::DeviceRGB || space.GetFamily() == Family::DeviceCMYK;
    if (!simple || values.size() != space.GetComponentCount())
        return representation;
    if (lab)
        representation.SetLab(Scale(space, values, false));
    else if (values.size() == 1)
        representation.SetGray(Scale(space, values, true));
    else if (values.size() == 3)
        representation.SetRgb(Scale(space, values, true));
    else
        representation.SetCmyk(Scale(space, values, true));
    return representation;
}

// A DeviceN space may describe its spot colorants one by one, as Separation spaces.
Representation RepresentAlone(const OrvSys::PdfObject& attributes, const std::string& name)
{
    const OrvSys::PdfObject definition = attributes.Find("Colorants").Find(name);
    if (!definition.IsArray() || definition.GetItems().empty() ||
        !definition.GetItems().front().IsName("Separation"))
        return Representation();
    try {
        const auto alternates = ColorSpace::FromDefinition(definition)->GetAlternates();
        return alternates.empty() ? Representation() : alternates.front().representation;
    } catch (const std::invalid_argument&) {
        return Representation(); // A malformed description tells as little as a missing one.
    }
}

} // namespace

std::vector<ColorSpace::Alternate> ColorSpace::GetAlternates() const
{
    std::vector<Alternate> alternates;
    for (std::size_t index = 0; index < state->colorantNames.size(); ++index) {
        const std::string& name = state->colorantNames[index];
        if (name == "All" || name == "None")
            continue;
        std::vector<double> tints(state->componentCount, 0.0);
        tints[index] = 1.0;
        Alternate alternate{name, {}};
        if (const auto values = Detail::EvaluateFunction(state->tintTransform, std::move(tints)))
            alternate.representation = Represent(*state->base, state->base->state->labComponents, *values);
        if (alternate.representation.GetKind() == Representation::Kind::None)
            alternate.representation = RepresentAlone(state->attributes, name);
        alternates.push_back(std::move(alternate));
    }
    return alternates;
}

} // namespace OrvColor
