#include <orv_doc/path.h>

#include <mutex>
#include <stdexcept>
#include <utility>

#include <orv_doc/clone.h>
#include <orv_doc/visitor.h>
#include <plexa/geometry.h>

#include "orv_doc/clone_properties.h"
#include "orv_doc/shape_mutex.h"
#include "orv_doc/stroke_reach.h"

namespace OrvDoc
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

namespace
{

std::shared_ptr<const Plexa::Compound> RequireCompound(std::shared_ptr<const Plexa::Compound> compound)
{
    if (!compound)
        throw std::invalid_argument("A path needs a shape.");
    return compound;
}

} // namespace

Path::Path(std::shared_ptr<const Plexa::Compound> givenCompound)
    : compound(RequireCompound(std::move(givenCompound)))
{}

Path::~Path() = default;

const std::shared_ptr<const Plexa::Compound>&
Path::TransformedCompound(const Transformation* transformation) const
{
    if (transformation && !Plexa::IsIdentity(*transformation)) {
        thread_local std::shared_ptr<const Plexa::Compound> further;
        further = *transformation * TransformedCompound(nullptr);
        return further;
    }
    if (hasTransformedCompound.load(std::memory_order_acquire))
        return transformedCompound;
    const Transformation absolute = GetAbsoluteTransformation(*this);
    if (Plexa::IsIdentity(absolute))
        return compound;
    const std::lock_guard<std::mutex> lock(Detail::GetShapeMutex(*this));
    if (!hasTransformedCompound.load(std::memory_order_relaxed)) {
        transformedCompound = absolute * compound;
        MarkDerivedShapes();
        hasTransformedCompound.store(true, std::memory_order_release);
    }
    return transformedCompound;
}

void Path::SetDefiningCompound(std::shared_ptr<const Plexa::Compound> value)
{
    compound = RequireCompound(std::move(value));
    OriginalOutlineChangedSelf();
    NotifyChanged(WhatChangedFlags::Outline);
}

void Path::SetClippingObject(bool value)
{
    isClipping = value;
    NotifyClippingRoleChanged();
}

Path* Path::Clone(CloneStrategy& strategy) const
{
    auto clone = std::make_unique<Path>(compound);
    CloneStrokableInto(*clone, strategy);
    clone->isClipping = isClipping;
    return clone.release();
}

Rectangle Path::GetBoundingBoxSelf(BoxKind kind, const Transformation& transformation) const
{
    const Rectangle box = Plexa::GetBoundingBox(*compound, transformation);
    if (kind == BoxKind::Outline || !GetStrokePaint())
        return box;
    return Detail::GrowByStroke(box, GetStrokeProperties(), transformation);
}

void Path::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Path::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Path::OriginalOutlineChangedSelf()
{
    Strokable::OriginalOutlineChangedSelf();
    hasTransformedCompound.store(false, std::memory_order_relaxed);
    transformedCompound.reset();
}

void Path::TransformationChangedSelf(const Transformation& change, TransformationMode mode)
{
    Strokable::TransformationChangedSelf(change, mode);
    hasTransformedCompound.store(false, std::memory_order_relaxed);
    transformedCompound.reset();
}

void Path::StrokePropertiesChangedSelf() {}

} // namespace OrvDoc
