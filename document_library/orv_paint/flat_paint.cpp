#include <orv_paint/flat_paint.h>

#include <stdexcept>
#include <utility>

#include "orv_paint/colorants.h"

namespace OrvPaint
{

FlatPaint::FlatPaint() : Paint(Type::Flat) {}

FlatPaint::~FlatPaint() = default;

OrvColor::ColorList<OrvColor::ColorantPolicy> FlatPaint::GetColorants() const
{
    return Detail::GetColorantsOf(color);
}

FlatPaint::Factory::Factory(OrvColor::ColorList<OrvColor::ColorPolicy> color, const OrvDoc::Document*)
{
    std::shared_ptr<FlatPaint> made(new FlatPaint);
    made->color = std::move(color);
    paint = std::move(made);
}

FlatPaint::Factory::Factory(std::shared_ptr<const OrvColor::ColorSpace> space, std::vector<float> components,
                            bool overprint, bool nonzeroOverprint)
{
    if (!space)
        throw std::invalid_argument("A flat paint in native components needs a colour space.");
    std::shared_ptr<FlatPaint> made(new FlatPaint);
    made->color = space->ToColorList(components, overprint, nonzeroOverprint);
    made->nativeSpace = std::move(space);
    made->nativeComponents = std::move(components);
    made->nonzeroOverprint = nonzeroOverprint;
    paint = std::move(made);
}

FlatPaint::Factory::~Factory() = default;

std::shared_ptr<const FlatPaint> FlatPaint::Factory::Get() const
{
    return paint;
}

std::shared_ptr<const FlatPaint> GetFlatPaint(OrvColor::ColorList<OrvColor::ColorPolicy> color,
                                              const OrvDoc::Document* document)
{
    return FlatPaint::Factory(std::move(color), document).Get();
}

} // namespace OrvPaint
