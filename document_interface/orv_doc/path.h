#pragma once

#include <atomic>
#include <memory>

#include <orv_doc/strokable.h>

namespace Plexa
{
class Compound;
}

namespace OrvDoc
{

/// A shape that is filled, stroked, both, or that clips the objects of its container.
class ORV_EXPORT Path : public Strokable
{
public:
    /// The compound must not be null: `std::invalid_argument`.
    explicit Path(std::shared_ptr<const Plexa::Compound> compound);
    ~Path() override;

    /// The shape as given, in the object's own coordinates.
    const std::shared_ptr<const Plexa::Compound>& DefiningCompound() const { return compound; }
    /// The shape in its final position on the page; with a transformation, that position transformed further.
    /// Without one it is made once and kept, safely from several threads; the reference then lives until the
    /// object or a group around it changes. With one, it lives until the next such call of the thread.
    const std::shared_ptr<const Plexa::Compound>& TransformedCompound(
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>* transformation) const;

    bool IsClippingObject() const override { return isClipping; }

    Path* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    void SetDefiningCompound(std::shared_ptr<const Plexa::Compound> value);
    void SetClippingObject(bool value);

protected:
    void OriginalOutlineChangedSelf() override;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;
    void StrokePropertiesChangedSelf() override;

private:
    std::shared_ptr<const Plexa::Compound> compound;
    mutable std::shared_ptr<const Plexa::Compound> transformedCompound;
    mutable std::atomic<bool> hasTransformedCompound{false};
    bool isClipping = false;
};

} // namespace OrvDoc
