#include <harrow_support/factories.h>

#include <utility>

#include "generation/shading_function.h"

namespace HarrowSupport
{

namespace
{

template <typename Factory>
void SetWhatShadingsShare(Factory& factory, const std::shared_ptr<const OrvPaint::Function>& function)
{
    factory.SetFunction(function);
    factory.SetTransformation({1.0, 0.0, 0.0, 1.0, 0.0, 0.0});
    factory.SetExtends({true, true});
}

} // namespace

std::shared_ptr<const OrvPaint::FlatPaint> CreateFlatPaint(OrvColor::ColorList<OrvColor::ColorPolicy> color)
{
    return OrvPaint::FlatPaint::Factory(std::move(color), nullptr).Get();
}

std::shared_ptr<const OrvPaint::FlatPaint> CreateFlatPaint(boost::string_view separation)
{
    OrvColor::ColorList<OrvColor::ColorPolicy> color;
    color.entries.push_back({1.0f, std::string(separation)});
    color.valueForAll = 0.0f;
    color.overprint = false;
    color.all = false;
    return CreateFlatPaint(std::move(color));
}

std::shared_ptr<const OrvPaint::AxialShadingPaint>
CreateAxialShadingPaint(std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>> colors,
                        std::vector<double> bounds, std::vector<double> midpoints,
                        std::vector<std::array<double, 2>> encode)
{
    const auto mapping = MakeSeparationMapping(colors);
    OrvPaint::AxialShadingPaint::Factory factory(mapping);
    SetWhatShadingsShare(
        factory, MakeShadingFunction(colors, std::move(bounds), midpoints, std::move(encode), mapping));
    factory.SetPoints({{0.0, 0.0}, {1.0, 0.0}});
    return factory.Get();
}

std::shared_ptr<const OrvPaint::RadialShadingPaint>
CreateRadialShadingPaint(std::vector<OrvColor::ColorList<OrvColor::ColorPolicy>> colors,
                         std::vector<double> bounds, std::vector<double> midpoints,
                         std::vector<std::array<double, 2>> encode)
{
    const auto mapping = MakeSeparationMapping(colors);
    OrvPaint::RadialShadingPaint::Factory factory(mapping);
    SetWhatShadingsShare(
        factory, MakeShadingFunction(colors, std::move(bounds), midpoints, std::move(encode), mapping));
    factory.SetCenters({{0.0, 0.0}, {1.0, 0.0}});
    factory.SetRadii({0.0, 1.0});
    return factory.Get();
}

} // namespace HarrowSupport
