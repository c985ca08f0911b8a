#include <orv_doc/strokable.h>

#include <utility>

namespace OrvDoc
{

namespace
{

const StrokeProperties& GetDefaultStrokeProperties()
{
    static const StrokeProperties defaults;
    return defaults;
}

} // namespace

void Strokable::SetStrokePaint(std::shared_ptr<const OrvPaint::Paint> paint)
{
    strokePaint = std::move(paint);
    NotifyChanged(WhatChangedFlags::Paint);
}

const StrokeProperties& Strokable::GetStrokeProperties() const
{
    return strokeProperties ? *strokeProperties : GetDefaultStrokeProperties();
}

void Strokable::SetStrokeProperties(StrokeProperties properties)
{
    std::shared_ptr<const StrokeProperties> shared;
    if (properties != GetDefaultStrokeProperties())
        shared = std::make_shared<const StrokeProperties>(std::move(properties));
    SetSharedStrokeProperties(std::move(shared));
}

void Strokable::SetSharedStrokeProperties(std::shared_ptr<const StrokeProperties> properties)
{
    strokeProperties = std::move(properties);
    StrokePropertiesChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

} // namespace OrvDoc
