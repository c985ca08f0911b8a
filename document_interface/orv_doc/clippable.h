#pragma once

#include <orv_doc/transformable.h>

namespace OrvDoc
{

/// An object that the clipping objects of its container, and of the groups around it, clip.
class ORV_EXPORT Clippable : public Transformable
{
protected:
    Clippable() = default;
    void ClippingObjectChangedSelf() override;
};

} // namespace OrvDoc
