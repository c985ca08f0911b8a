#include <orv_doc/image.h>

#include <utility>

#include <orv_doc/clone.h>
#include <orv_doc/visitor.h>

#include "orv_doc/clone_properties.h"
#include "orv_doc/unit_square.h"

namespace OrvDoc
{

Image::Image(std::shared_ptr<const OrvImg::PaintedPicture> givenPicture) : picture(std::move(givenPicture)) {}

Image::~Image() = default;

void Image::SetHalftoneSet(std::shared_ptr<HalftoneSet> value)
{
    halftoneSet = std::move(value);
    NotifyChanged(WhatChangedFlags::Paint);
}

Image* Image::Clone(CloneStrategy& strategy) const
{
    auto clone = std::make_unique<Image>(picture);
    Detail::CopyObjectProperties(*this, *clone, strategy);
    clone->halftoneSet = halftoneSet;
    return clone.release();
}

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> Image::GetBoundingBoxSelf(
    BoxKind, const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const
{
    return Detail::MapUnitSquare(transformation);
}

void Image::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Image::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

} // namespace OrvDoc
