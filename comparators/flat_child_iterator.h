#pragma once

#include <orv_doc/content_object.h>
#include <orv_doc/detail_list.h>

#include <boost/container/small_vector.hpp>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace OrvDoc
{
class Group;
}

namespace HarrowSupport::Comparators
{

/// Whether a user made the group.
bool IsUserCreated(const OrvDoc::Group& group);

/// Whether an object is a group that is transparent to the comparison, so that its children count as children
/// of its parent: exactly an OrvDoc::Group, made by no user, without name and without transparency.
bool IsImplicitGroup(const OrvDoc::ContentObject& object);

/// Delivers the objects of a child list in the order in which they are compared: at each level first those
/// that are not clipping objects, in list order, with the children of an implicit group in the place of the
/// group; then the clipping objects of the level, the last one first. A clipping object is delivered whole
/// even if it is an implicit group.
///
/// The list must not change meanwhile. The first implicit groups and the absence of clipping objects cost no
/// memory.
class FlatChildIterator
{
public:
    explicit FlatChildIterator(const OrvDoc::Detail::List<OrvDoc::ContentObject>& children);

    /// The next object, null when the list is exhausted.
    const OrvDoc::ContentObject* Next();

private:
    const OrvDoc::ContentObject* TakeReady();
    void CloseFinishedLevels();

    /// Next object to look at; null at the end of a list.
    const OrvDoc::ContentObject* current;
    /// The implicit groups that the walk is inside, below a null for the list itself.
    boost::container::small_vector<const OrvDoc::Group*, 2> openGroups;
    /// For each of these, how many objects of its level are held back.
    boost::container::small_vector<std::uint64_t, 2> heldCounts;
    /// The clipping objects held back, of all open levels.
    std::vector<const OrvDoc::ContentObject*> heldObjects;
    /// Clipping objects released; those before `readyTaken` have been delivered.
    std::vector<const OrvDoc::ContentObject*> ready;
    std::size_t readyTaken = 0;
};

} // namespace HarrowSupport::Comparators
