#pragma once

#include <orv_doc/group.h>

namespace OrvDoc
{

/// The objects of one text object of a page, `BT` to `ET` (ISO 32000-1, 9.4). Can be a clipping object: then
/// the outlines of its texts together are the clip (ISO 32000-1, 9.3.6).
class ORV_EXPORT TextGroup : public Group
{
public:
    TextGroup();
    ~TextGroup() override;

    bool IsClippingObject() const override { return isClipping; }

    TextGroup* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    /// As that of a group; of one that clips, the outlines alone, since a stroke adds nothing to a clip.
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    void SetClippingObject(bool value);

private:
    bool isClipping = false;
};

} // namespace OrvDoc
