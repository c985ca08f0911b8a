#include <orv_doc/group.h>

#include <stdexcept>
#include <utility>

#include <orv_doc/content.h>
#include <orv_doc/marked_content.h>

#include "orv_doc/walk_below.h"

namespace OrvDoc
{

using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

namespace
{

/// Whether `object` is `group` or a group around it. Only a group that holds something can be around another,
/// which spares the way up in a tree that is built from the top.
bool Contains(ContentObject& object, const Group& group)
{
    if (&object == &group)
        return true;
    const Group* const container = Detail::AsGroup(object);
    if (!container || !container->children.first)
        return false;
    const Group* ancestor = group.GetParentGroup();
    while (ancestor && ancestor != container)
        ancestor = ancestor->GetParentGroup();
    return ancestor != nullptr;
}

} // namespace

Group::Group(Flags initialFlags) : flags(initialFlags) {}

Group::~Group()
{
    DestroyAll(children);
}

void Group::AddOnTop(ContentObject* object)
{
    if (!object)
        throw std::invalid_argument("There is no object to add to the group.");
    if (object->content || object->parentGroup)
        throw std::invalid_argument("An object that stands in a container can't be added to a group.");
    if (Contains(*object, *this))
        throw std::invalid_argument("A group can't be added to itself or to a group that it contains.");
    children.Append(*object);
    object->parentGroup = this;
    object->DropDerivedShapes();
    if (Content* const newContent = GetContent())
        object->ContentChangedSelf(nullptr, newContent);
    NotifyChanged(WhatChangedFlags::Children);
}

void Group::SetFlags(Flags value)
{
    flags = value;
    NotifyChanged(WhatChangedFlags::Name);
}

void Group::SetMarkedContent(std::shared_ptr<const MarkedContent> value)
{
    markedContent = std::move(value);
    NotifyChanged(WhatChangedFlags::Name);
}

void Group::ContentChangedSelf(Content* oldContent, Content* newContent)
{
    Blendable::ContentChangedSelf(oldContent, newContent);
    Detail::WalkBelow(
        *this,
        [&](Group& group) {
            group.Blendable::ContentChangedSelf(oldContent, newContent);
            return true;
        },
        [&](ContentObject& object) { object.ContentChangedSelf(oldContent, newContent); });
}

void Group::TransformationChangedSelf(const Transformation& change, TransformationMode mode)
{
    const auto changeGroup = [&](Group& group) {
        group.Blendable::TransformationChangedSelf(change, mode);
        group.hasDerivedShapes.store(false, std::memory_order_relaxed);
        return true;
    };
    changeGroup(*this);
    Detail::WalkBelow(*this, changeGroup,
                      [&](ContentObject& object) { object.TransformationChangedSelf(change, mode); });
}

void Group::ClippingObjectChangedSelf()
{
    const auto changeGroup = [](Group& group) {
        group.Blendable::ClippingObjectChangedSelf();
        return true;
    };
    changeGroup(*this);
    Detail::WalkBelow(*this, changeGroup, [](ContentObject& object) { object.ClippingObjectChangedSelf(); });
}

void Group::ChildChangedSelf(ContentObject&, WhatChangedFlags) {}

} // namespace OrvDoc
