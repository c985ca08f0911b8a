#include <orv_doc/content_object.h>

#include <orv_doc/content.h>
#include <orv_doc/group.h>

#include "orv_doc/group_class.h"
#include "orv_doc/next_id.h"
#include "orv_doc/walk_below.h"

namespace OrvDoc
{

ContentObject::ContentObject() : id(Detail::NextID()) {}

ContentObject::~ContentObject()
{
    if (!content && !parentGroup)
        return;
    Unlink();
    if (content)
        content->MarkChanged();
}

void ContentObject::SetName(const std::string& value)
{
    ownName = value.empty() ? nullptr : std::make_unique<std::string>(value);
    NotifyChanged(WhatChangedFlags::Name);
}

const std::string& ContentObject::GetName() const
{
    static const std::string noName;
    return ownName ? *ownName : noName;
}

bool ContentObject::IsClippingObject() const
{
    return false;
}

ContentObject* ContentObject::ExtractFromParent()
{
    Group* const oldGroup = parentGroup;
    Content* const oldContent = content;
    if (!oldGroup && !oldContent)
        return this;
    Unlink();
    parentGroup = nullptr;
    if (oldGroup) {
        DropDerivedShapes();
        oldGroup->NotifyChanged(WhatChangedFlags::Children);
    } else {
        oldContent->MarkChanged();
    }
    if (oldContent)
        ContentChangedSelf(oldContent, nullptr);
    return this;
}

void ContentObject::ContentChangedSelf(Content*, Content* newContent)
{
    content = newContent;
}

void ContentObject::NotifyChanged(WhatChangedFlags what)
{
    if (parentGroup)
        parentGroup->ChildChangedSelf(*this, what);
    if (content)
        content->MarkChanged();
}

void ContentObject::NotifyClippingRoleChanged()
{
    ContentObject* sibling = nullptr;
    if (parentGroup)
        sibling = parentGroup->children.first;
    else if (content)
        sibling = content->GetChildren().first;
    for (; sibling; sibling = sibling->next) {
        if (sibling != this)
            sibling->ClippingObjectChangedSelf();
    }
    NotifyChanged(WhatChangedFlags::Clipping);
}

void ContentObject::MarkDerivedShapes() const
{
    // A group that is marked stands in marked ones, or another thread is about to mark those.
    for (const Group* group = parentGroup; group; group = group->parentGroup) {
        if (group->hasDerivedShapes.exchange(true, std::memory_order_relaxed))
            return;
    }
}

void ContentObject::Unlink()
{
    if (parentGroup)
        parentGroup->children.Remove(*this);
    else
        content->GetChildren().Remove(*this);
}

void ContentObject::DropDerivedShapes()
{
    const auto drop = [](ContentObject& object) {
        object.TransformationChangedSelf(Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>(),
                                         TransformationMode::Append);
    };
    if (Detail::GetGroupClass(*this) == Detail::GroupClass::None) {
        drop(*this);
        return;
    }
    const auto unmark = [](Group& group) {
        return group.hasDerivedShapes.exchange(false, std::memory_order_relaxed);
    };
    auto& self = static_cast<Group&>(*this);
    if (unmark(self))
        Detail::WalkBelow(self, unmark, drop);
}

void ContentObject::DestroyAll(Detail::List<ContentObject>& objects) noexcept
{
    // What is in a group joins the end of the list before the group goes, so that no destructor finds
    // children.
    while (ContentObject* const object = objects.first) {
        objects.Remove(*object);
        object->parentGroup = nullptr;
        object->content = nullptr;
        if (Group* const group = Detail::AsGroup(*object)) {
            Detail::List<ContentObject>& below = group->children;
            if (below.first) {
                below.first->previous = objects.last;
                (objects.last ? objects.last->next : objects.first) = below.first;
                objects.last = below.last;
                below = {};
            }
        }
        delete object;
    }
}

} // namespace OrvDoc
