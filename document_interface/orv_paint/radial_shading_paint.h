#pragma once

#include <array>
#include <memory>
#include <utility>

#include <orv_paint/function.h>
#include <orv_paint/shading_paint.h>
#include <orv_sys/export.h>
#include <plexa/point.h>

namespace OrvPaint
{

/// Colours from one circle to another (ISO 32000-1, 8.7.4.5.4).
class ORV_EXPORT RadialShadingPaint : public ShadingPaint
{
public:
    class Factory;

    using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;
    using Coordinate = Plexa::CoordinateBase<Plexa::MilliPointCoordinateSystem>;

    ~RadialShadingPaint() override;

    /// Centres of the first and the second circle, in milli-points of the shading's coordinates.
    const std::pair<Point, Point>& GetCenters() const { return fields.points; }

    /// Radii of the first and the second circle.
    const std::pair<Coordinate, Coordinate>& GetRadii() const { return fields.radii; }

    /// Whether the shading goes on before its start and behind its end.
    const std::pair<bool, bool>& GetExtends() const { return fields.extends; }

    /// From the parameter along the shading to a component for each mapped index. Its domain is that of the
    /// parameter.
    const std::shared_ptr<const Function>& GetFunction() const { return fields.function; }

    // For makers of documents.

    /// The values of the parameter at start and end (`Domain`).
    const std::array<double, 2>& GetParameterRange() const { return fields.parameterRange; }

private:
    struct Fields
    {
        std::pair<Point, Point> points;
        std::pair<Coordinate, Coordinate> radii;
        std::pair<bool, bool> extends{false, false};
        std::shared_ptr<const Function> function;
        std::array<double, 2> parameterRange{0.0, 1.0};
    };

    RadialShadingPaint(Common common, Fields givenFields);

    Fields fields;
};

class ORV_EXPORT RadialShadingPaint::Factory : public ShadingPaint::Factory<RadialShadingPaint>
{
public:
    explicit Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping);
    ~Factory();

    /// The parameter then runs over the function's domain, unless SetParameterRange says otherwise later.
    Factory& SetFunction(const std::shared_ptr<const Function>& function);
    Factory& SetExtends(const std::pair<bool, bool>& extends);
    Factory& SetCenters(const std::pair<Point, Point>& points);
    Factory& SetRadii(const std::pair<Coordinate, Coordinate>& radii);

    /// Throws std::invalid_argument if there is no function, or one of more than one input.
    std::shared_ptr<const RadialShadingPaint> Get() const;

    // For makers of documents.

    Factory& SetParameterRange(const std::array<double, 2>& range);

private:
    Fields fields;
};

} // namespace OrvPaint
