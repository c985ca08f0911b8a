#include <orv_doc/transformable.h>

#include <orv_doc/group.h>

namespace OrvDoc
{

using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

void Transformable::SetTransformation(const Transformation& value)
{
    Transform(value, TransformationMode::Replace);
}

void Transformable::Transform(const Transformation& change, TransformationMode mode)
{
    ownTransformation =
        mode == TransformationMode::Append ? Plexa::Concatenate(ownTransformation, change) : change;
    TransformationChangedSelf(change, mode);
    NotifyChanged(WhatChangedFlags::Transformation);
}

void Transformable::OriginalOutlineChangedSelf() {}

Transformation GetAbsoluteTransformation(const Transformable& object)
{
    Transformation result = object.GetTransformation();
    for (const Group* group = object.GetParentGroup(); group; group = group->GetParentGroup())
        result = Plexa::Concatenate(result, group->GetTransformation());
    return result;
}

} // namespace OrvDoc
