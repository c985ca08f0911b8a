#include <orv_doc/text_group.h>

#include <orv_doc/visitor.h>

namespace OrvDoc
{

TextGroup::TextGroup() : Group(Flags::Default) {}

TextGroup::~TextGroup() = default;

void TextGroup::SetClippingObject(bool value)
{
    isClipping = value;
    NotifyClippingRoleChanged();
}

Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> TextGroup::GetBoundingBoxSelf(
    BoxKind kind, const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const
{
    return Group::GetBoundingBoxSelf(isClipping ? BoxKind::Outline : kind, transformation);
}

void TextGroup::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void TextGroup::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

} // namespace OrvDoc
