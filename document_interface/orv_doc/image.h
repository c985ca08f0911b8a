#pragma once

#include <memory>

#include <orv_doc/blendable.h>

namespace OrvImg
{
class PaintedPicture;
}

namespace OrvDoc
{

class HalftoneSet;

/// A picture on the page. It fills the unit square of the object's own coordinates: one point by one point.
class ORV_EXPORT Image : public Blendable
{
public:
    explicit Image(std::shared_ptr<const OrvImg::PaintedPicture> picture);
    ~Image() override;

    const std::shared_ptr<const OrvImg::PaintedPicture>& GetPaintedPicture() const { return picture; }
    /// Null if the object has no halftones of its own.
    const std::shared_ptr<HalftoneSet>& GetHalftoneSet() const { return halftoneSet; }

    Image* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    void SetHalftoneSet(std::shared_ptr<HalftoneSet> value);

private:
    std::shared_ptr<const OrvImg::PaintedPicture> picture;
    std::shared_ptr<HalftoneSet> halftoneSet;
};

} // namespace OrvDoc
