// The way of a visitor through the children of a group. Groups of the library are gone through with a stack
// of our own, since their nesting is bounded by memory alone; the call stack would end long before.

#include <type_traits>
#include <vector>

#include <orv_doc/group.h>
#include <orv_doc/visitor.h>

#include "orv_doc/group_class.h"

namespace OrvDoc
{

namespace
{

using Detail::GroupClass;

template <typename Derived, typename GroupType>
using WithConstOf = std::conditional_t<std::is_const_v<GroupType>, const Derived, Derived>;

template <typename Visitor, typename GroupType>
bool VisitGroup(Visitor& visitor, GroupType& group, GroupClass groupClass)
{
    switch (groupClass) {
    case GroupClass::TextGroup:
        return visitor.Visit(static_cast<WithConstOf<TextGroup, GroupType>&>(group));
    case GroupClass::Layer:
        return visitor.Visit(static_cast<WithConstOf<Layer, GroupType>&>(group));
    default:
        return visitor.Visit(group);
    }
}

template <typename Visitor, typename GroupType>
void EndVisitGroup(Visitor& visitor, GroupType& group, GroupClass groupClass)
{
    switch (groupClass) {
    case GroupClass::TextGroup:
        return visitor.EndVisit(static_cast<WithConstOf<TextGroup, GroupType>&>(group));
    case GroupClass::Layer:
        return visitor.EndVisit(static_cast<WithConstOf<Layer, GroupType>&>(group));
    default:
        return visitor.EndVisit(group);
    }
}

template <typename Visitor, typename GroupType>
void VisitBelow(Visitor& visitor, GroupType& root)
{
    using Object = WithConstOf<ContentObject, GroupType>;
    struct Level
    {
        GroupType* group;
        GroupClass groupClass;
        Object* next; // What follows the group. Read before its visit, for the group may be gone after it.
    };
    std::vector<Level> levels;
    Object* object = root.children.first;
    for (;;) {
        while (!object) {
            if (levels.empty())
                return;
            const Level level = levels.back();
            levels.pop_back();
            EndVisitGroup(visitor, *level.group, level.groupClass);
            object = level.next;
        }
        Object* const next = object->next;
        const GroupClass groupClass = Detail::GetGroupClass(*object);
        if (groupClass == GroupClass::None) {
            object->Accept(visitor);
            object = next;
            continue;
        }
        auto& group = static_cast<GroupType&>(*object);
        if (VisitGroup(visitor, group, groupClass)) {
            levels.push_back({&group, groupClass, next});
            object = group.children.first;
        } else {
            EndVisitGroup(visitor, group, groupClass);
            object = next;
        }
    }
}

} // namespace

void Group::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Group::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Group::PropagateVisitorSelf(ConstVisitorBase& visitor) const
{
    VisitBelow(visitor, *this);
}

void Group::PropagateVisitorSelf(VisitorBase& visitor)
{
    VisitBelow(visitor, *this);
}

} // namespace OrvDoc
