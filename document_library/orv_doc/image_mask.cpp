#include <orv_doc/image_mask.h>

#include <utility>

#include <orv_doc/clone.h>
#include <orv_doc/visitor.h>

#include "orv_doc/unit_square.h"

namespace OrvDoc
{

ImageMask::ImageMask(std::shared_ptr<const OrvImg::PictureData> givenData) : data(std::move(givenData)) {}

ImageMask::~ImageMask() = default;

ImageMask* ImageMask::Clone(CloneStrategy& strategy) const
{
    auto clone = std::make_unique<ImageMask>(data);
    CloneFillableInto(*clone, strategy);
    return clone.release();
}

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> ImageMask::GetBoundingBoxSelf(
    BoxKind, const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const
{
    return Detail::MapUnitSquare(transformation);
}

void ImageMask::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void ImageMask::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

} // namespace OrvDoc
