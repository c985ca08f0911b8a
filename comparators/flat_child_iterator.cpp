#include "flat_child_iterator.h"

#include "prefetch.h"

#include <orv_doc/group.h>

#include <typeinfo>

namespace HarrowSupport::Comparators
{

namespace
{

constexpr std::uint32_t userCreatedBit = std::uint32_t{1} << 30;

} // namespace

bool IsUserCreated(const OrvDoc::Group& group)
{
    return (static_cast<std::uint32_t>(group.GetFlags()) & userCreatedBit) != 0;
}

bool IsImplicitGroup(const OrvDoc::ContentObject& object)
{
    if (typeid(object) != typeid(OrvDoc::Group))
        return false;
    const auto& group = static_cast<const OrvDoc::Group&>(object);
    return !IsUserCreated(group) && group.GetName().empty() && group.GetTransparency() == nullptr;
}

FlatChildIterator::FlatChildIterator(const OrvDoc::Detail::List<OrvDoc::ContentObject>& children)
    : current(children.first), openGroups(1, nullptr), heldCounts(1, 0)
{}

const OrvDoc::ContentObject* FlatChildIterator::Next()
{
    for (;;) {
        if (readyTaken < ready.size())
            return TakeReady();

        const OrvDoc::ContentObject* item = current;
        bool again = false;
        if (item != nullptr) {
            if (item->IsClippingObject()) {
                ++heldCounts.back();
                heldObjects.push_back(item);
                again = true;
                current = item->next;
            } else if (IsImplicitGroup(*item)) {
                const auto* group = static_cast<const OrvDoc::Group*>(item);
                openGroups.push_back(group);
                heldCounts.push_back(0);
                again = true;
                current = group->children.first;
            } else {
                current = item->next;
                PrefetchAround(current);
            }
        }
        CloseFinishedLevels();
        if (!again)
            return item;
    }
}

const OrvDoc::ContentObject* FlatChildIterator::TakeReady()
{
    const OrvDoc::ContentObject* item = ready[readyTaken++];
    if (readyTaken == ready.size()) {
        ready.clear();
        readyTaken = 0;
    }
    return item;
}

void FlatChildIterator::CloseFinishedLevels()
{
    while (current == nullptr && !openGroups.empty()) {
        if (openGroups.size() > 1)
            current = openGroups.back()->next;
        openGroups.pop_back();
        for (std::uint64_t count = heldCounts.back(); count > 0; --count) {
            ready.push_back(heldObjects.back());
            heldObjects.pop_back();
        }
        heldCounts.pop_back();
    }
}

} // namespace HarrowSupport::Comparators
