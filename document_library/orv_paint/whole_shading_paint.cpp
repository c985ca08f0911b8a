#include <orv_paint/whole_shading_paint.h>

#include <utility>

namespace OrvPaint
{

WholeShadingPaint::WholeShadingPaint(Common givenCommon, OrvSys::PdfObject givenDefinition)
    : ShadingPaint(Type::OtherShading, std::move(givenCommon)), definition(std::move(givenDefinition))
{}

WholeShadingPaint::~WholeShadingPaint() = default;

WholeShadingPaint::Factory::Factory(OrvColor::ColorList<OrvColor::SeparationMappingPolicy> mapping,
                                    OrvSys::PdfObject givenDefinition)
    : ShadingPaint::Factory<WholeShadingPaint>(std::move(mapping)), definition(std::move(givenDefinition))
{}

WholeShadingPaint::Factory::~Factory() = default;

std::shared_ptr<const WholeShadingPaint> WholeShadingPaint::Factory::Get() const
{
    return std::shared_ptr<const WholeShadingPaint>(new WholeShadingPaint(common, definition));
}

} // namespace OrvPaint
