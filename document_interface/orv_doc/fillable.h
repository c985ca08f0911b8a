#pragma once

#include <memory>

#include <orv_doc/blendable.h>

namespace OrvPaint
{
class Paint;
}

namespace OrvDoc
{

class HalftoneSet;

/// An object whose inside is painted.
class ORV_EXPORT Fillable : public Blendable
{
public:
    /// Null if the inside is not painted.
    const std::shared_ptr<const OrvPaint::Paint>& GetFillPaint() const { return fillPaint; }
    void SetFillPaint(std::shared_ptr<const OrvPaint::Paint> paint);
    /// Null if the object has no halftones of its own.
    const std::shared_ptr<HalftoneSet>& GetHalftoneSet() const { return halftoneSet; }

    // For makers of documents.

    void SetHalftoneSet(std::shared_ptr<HalftoneSet> value);

protected:
    Fillable() = default;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;
    /// Copies what every fillable object has into a clone.
    void CloneFillableInto(Fillable& clone, CloneStrategy& strategy) const;

private:
    std::shared_ptr<const OrvPaint::Paint> fillPaint;
    std::shared_ptr<HalftoneSet> halftoneSet;
};

} // namespace OrvDoc
