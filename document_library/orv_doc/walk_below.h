#pragma once

#include "orv_doc/group_class.h"

namespace OrvDoc::Detail
{

/// The object that follows `object` and all that is below it, in paint order and below `root`; null at the
/// end. The groups between the two show the way up, so a walk needs no memory however deep the tree is.
template <typename Object, typename Root>
Object* GetFollowing(Object* object, const Root& root)
{
    while (!object->next) {
        auto* parent = object->GetParentGroup();
        if (parent == &root)
            return nullptr;
        object = parent;
    }
    return object->next;
}

/// Walks everything below a group in paint order, each group before what is in it. `onGroup` receives each of
/// the library's own groups and tells whether to go into it, `onOther` every other object. Neither may change
/// the tree.
template <typename OnGroup, typename OnOther>
void WalkBelow(Group& root, OnGroup onGroup, OnOther onOther)
{
    ContentObject* object = root.children.first;
    while (object) {
        if (GetGroupClass(*object) != GroupClass::None) {
            auto& group = static_cast<Group&>(*object);
            if (onGroup(group) && group.children.first) {
                object = group.children.first;
                continue;
            }
        } else {
            onOther(*object);
        }
        object = GetFollowing(object, root);
    }
}

} // namespace OrvDoc::Detail
