#include <orv_paint/radial_shading_paint.h>

#include <utility>

#include "orv_paint/parameter_function.h"

namespace OrvPaint
{

RadialShadingPaint::RadialShadingPaint(Common givenCommon, Fields givenFields)
    : ShadingPaint(Type::RadialShading, std::move(givenCommon)), fields(std::move(givenFields))
{}

RadialShadingPaint::~RadialShadingPaint() = default;

RadialShadingPaint::Factory::Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping)
    : ShadingPaint::Factory<RadialShadingPaint>(std::move(mapping))
{}

RadialShadingPaint::Factory::~Factory() = default;

RadialShadingPaint::Factory&
RadialShadingPaint::Factory::SetFunction(const std::shared_ptr<const Function>& function)
{
    fields.function = function;
    fields.parameterRange = Detail::GetParameterRangeOf(function, fields.parameterRange);
    return *this;
}

RadialShadingPaint::Factory& RadialShadingPaint::Factory::SetExtends(const std::pair<bool, bool>& extends)
{
    fields.extends = extends;
    return *this;
}

RadialShadingPaint::Factory& RadialShadingPaint::Factory::SetCenters(const std::pair<Point, Point>& points)
{
    fields.points = points;
    return *this;
}

RadialShadingPaint::Factory&
RadialShadingPaint::Factory::SetRadii(const std::pair<Coordinate, Coordinate>& radii)
{
    fields.radii = radii;
    return *this;
}

RadialShadingPaint::Factory&
RadialShadingPaint::Factory::SetParameterRange(const std::array<double, 2>& range)
{
    fields.parameterRange = range;
    return *this;
}

std::shared_ptr<const RadialShadingPaint> RadialShadingPaint::Factory::Get() const
{
    Detail::CheckParameterFunction(fields.function);
    return std::shared_ptr<const RadialShadingPaint>(new RadialShadingPaint(common, fields));
}

} // namespace OrvPaint
