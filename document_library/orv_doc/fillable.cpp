#include <orv_doc/fillable.h>

#include <utility>

namespace OrvDoc
{

void Fillable::SetFillPaint(std::shared_ptr<const OrvPaint::Paint> paint)
{
    fillPaint = std::move(paint);
    NotifyChanged(WhatChangedFlags::Paint);
}

void Fillable::SetHalftoneSet(std::shared_ptr<HalftoneSet> value)
{
    halftoneSet = std::move(value);
    NotifyChanged(WhatChangedFlags::Paint);
}

void Fillable::TransformationChangedSelf(
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change, TransformationMode mode)
{
    Blendable::TransformationChangedSelf(change, mode);
}

} // namespace OrvDoc
