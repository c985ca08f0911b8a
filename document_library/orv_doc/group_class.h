#pragma once

#include <typeinfo>

#include <orv_doc/layer.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

namespace OrvDoc::Detail
{

/// Which of the library's own groups an object is. A class that somebody derived from one of them is none: it
/// may have its own way through its children, which only its virtual functions know.
enum class GroupClass
{
    None,
    Group,
    TextGroup,
    Layer,
};

inline GroupClass GetGroupClass(const ContentObject& object)
{
    const std::type_info& type = typeid(object);
    if (type == typeid(Path) || type == typeid(Text)) // By far the most objects.
        return GroupClass::None;
    if (type == typeid(Group))
        return GroupClass::Group;
    if (type == typeid(TextGroup))
        return GroupClass::TextGroup;
    return type == typeid(Layer) ? GroupClass::Layer : GroupClass::None;
}

/// The object as a group, of whatever class; null if it is none.
inline Group* AsGroup(ContentObject& object)
{
    if (GetGroupClass(object) != GroupClass::None)
        return static_cast<Group*>(&object);
    const std::type_info& type = typeid(object);
    return type == typeid(Path) || type == typeid(Text) ? nullptr : dynamic_cast<Group*>(&object);
}

} // namespace OrvDoc::Detail
