#include <orv_paint/axial_shading_paint.h>

#include <utility>

#include "orv_paint/parameter_function.h"

namespace OrvPaint
{

AxialShadingPaint::AxialShadingPaint(Common givenCommon, Fields givenFields)
    : ShadingPaint(Type::AxialShading, std::move(givenCommon)), fields(std::move(givenFields))
{}

AxialShadingPaint::~AxialShadingPaint() = default;

AxialShadingPaint::Factory::Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping)
    : ShadingPaint::Factory<AxialShadingPaint>(std::move(mapping))
{}

AxialShadingPaint::Factory::~Factory() = default;

AxialShadingPaint::Factory&
AxialShadingPaint::Factory::SetFunction(const std::shared_ptr<const Function>& function)
{
    fields.function = function;
    fields.parameterRange = Detail::GetParameterRangeOf(function, fields.parameterRange);
    return *this;
}

AxialShadingPaint::Factory& AxialShadingPaint::Factory::SetExtends(const std::pair<bool, bool>& extends)
{
    fields.extends = extends;
    return *this;
}

AxialShadingPaint::Factory& AxialShadingPaint::Factory::SetPoints(const std::pair<Point, Point>& points)
{
    fields.points = points;
    return *this;
}

AxialShadingPaint::Factory& AxialShadingPaint::Factory::SetParameterRange(const std::array<double, 2>& range)
{
    fields.parameterRange = range;
    return *this;
}

std::shared_ptr<const AxialShadingPaint> AxialShadingPaint::Factory::Get() const
{
    Detail::CheckParameterFunction(fields.function);
    return std::shared_ptr<const AxialShadingPaint>(new AxialShadingPaint(common, fields));
}

} // namespace OrvPaint
