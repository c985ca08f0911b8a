#include <memory>
#include <utility>

#include <orv_doc/clone.h>
#include <orv_doc/content.h>
#include <orv_doc/group.h>
#include <orv_doc/marked_content.h>

#include "orv_doc/clone_properties.h"
#include "orv_doc/group_class.h"

namespace OrvDoc
{

namespace
{

using Detail::GroupClass;

/// An object number means nothing in another document. Of a source that stands in no content nobody knows the
/// document.
std::shared_ptr<const MarkedContent> CloneMarkedContent(const std::shared_ptr<const MarkedContent>& source,
                                                        const Content* content, const Document& target)
{
    if (!source || source->resourceObject == 0 || (content && &content->GetDocument() == &target))
        return source;
    auto copy = std::make_shared<MarkedContent>(*source);
    copy->resourceObject = 0;
    return copy;
}

/// The class and what it has beyond a group.
std::unique_ptr<Group> CloneClass(const Group& source, GroupClass groupClass, CloneStrategy& strategy)
{
    if (groupClass == GroupClass::TextGroup) {
        auto clone = std::make_unique<TextGroup>();
        clone->SetClippingObject(source.IsClippingObject());
        return clone;
    }
    if (groupClass == GroupClass::Layer) {
        const Layer::Membership& membership = static_cast<const Layer&>(source).GetMembership();
        if (const auto* layer = boost::get<std::shared_ptr<LayerProperties>>(&membership))
            return std::make_unique<Layer>(strategy.CloneLayer(*layer));
        return std::make_unique<Layer>(
            Detail::CloneExpression(boost::get<LogicalLayerExpression>(membership), strategy));
    }
    return std::make_unique<Group>(source.GetFlags());
}

} // namespace

Group* Group::Clone(CloneStrategy& strategy) const
{
    std::unique_ptr<Group> clone = CloneClass(*this, GroupClass::Group, strategy);
    CloneInto(*clone, strategy);
    return clone.release();
}

TextGroup* TextGroup::Clone(CloneStrategy& strategy) const
{
    std::unique_ptr<Group> clone = CloneClass(*this, GroupClass::TextGroup, strategy);
    CloneInto(*clone, strategy);
    return static_cast<TextGroup*>(clone.release());
}

Layer* Layer::Clone(CloneStrategy& strategy) const
{
    std::unique_ptr<Group> clone = CloneClass(*this, GroupClass::Layer, strategy);
    CloneInto(*clone, strategy);
    return static_cast<Layer*>(clone.release());
}

void Group::CloneInto(Group& clone, CloneStrategy& strategy) const
{
    const auto copyProperties = [&strategy](const Group& source, Group& target) {
        Detail::CopyObjectProperties(source, target, strategy);
        target.flags = source.flags;
        target.markedContent =
            CloneMarkedContent(source.markedContent, source.GetContent(), strategy.GetDocument());
    };
    copyProperties(*this, clone);

    // Source and clone are gone through in step, down and up again by the groups around them.
    const ContentObject* source = children.first;
    Group* target = &clone;
    while (source) {
        const GroupClass groupClass = Detail::GetGroupClass(*source);
        if (groupClass == GroupClass::None) {
            std::unique_ptr<ContentObject> copy(source->Clone(strategy));
            target->AddOnTop(copy.get());
            copy.release();
        } else {
            const auto& group = static_cast<const Group&>(*source);
            std::unique_ptr<Group> copy = CloneClass(group, groupClass, strategy);
            copyProperties(group, *copy);
            target->AddOnTop(copy.get());
            Group* const added = copy.release();
            if (group.children.first) {
                source = group.children.first;
                target = added;
                continue;
            }
        }
        while (!source->next) {
            source = source->GetParentGroup();
            if (source == this)
                return;
            target = target->GetParentGroup();
        }
        source = source->next;
    }
}

} // namespace OrvDoc
