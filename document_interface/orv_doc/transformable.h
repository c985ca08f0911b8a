#pragma once

#include <orv_doc/content_object.h>

namespace OrvDoc
{

/// An object with a transformation of its own.
class ORV_EXPORT Transformable : public ContentObject
{
public:
    // For makers of documents.

    /// The object's own transformation, from its coordinates to those of its container. The identity at
    /// first.
    const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& GetTransformation() const
    {
        return ownTransformation;
    }
    void SetTransformation(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& value);
    /// Applies a transformation: in the place of the present one, or after it (which moves the object as a
    /// whole).
    void Transform(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                   TransformationMode mode);

protected:
    Transformable() = default;
    void OriginalOutlineChangedSelf() override;

private:
    Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem> ownTransformation;
};

/// The object's transformation to the page, with the transformations of all groups around it applied.
/// Linear in the depth of the object.
ORV_EXPORT Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>
GetAbsoluteTransformation(const Transformable& object);

} // namespace OrvDoc
