#pragma once

#include <memory>

#include <orv_doc/fillable.h>

namespace OrvImg
{
class PictureData;
}

namespace OrvDoc
{

/// A stencil through which the fill paint is poured (ISO 32000-1, 8.9.6.2). It fills the unit square of the
/// object's own coordinates: one point by one point.
class ORV_EXPORT ImageMask : public Fillable
{
public:
    explicit ImageMask(std::shared_ptr<const OrvImg::PictureData> data);
    ~ImageMask() override;

    const std::shared_ptr<const OrvImg::PictureData>& GetPictureData() const { return data; }

    ImageMask* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

private:
    std::shared_ptr<const OrvImg::PictureData> data;
};

} // namespace OrvDoc
