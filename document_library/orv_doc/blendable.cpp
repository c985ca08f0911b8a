#include <orv_doc/blendable.h>

#include <utility>

namespace OrvDoc
{

void Blendable::SetTransparency(std::shared_ptr<const OrvBlend::Transparency> value)
{
    transparency = std::move(value);
    NotifyChanged(WhatChangedFlags::Paint);
}

void Blendable::TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>&,
                                          TransformationMode)
{}

} // namespace OrvDoc
