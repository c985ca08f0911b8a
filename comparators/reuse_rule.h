#pragma once

#include "difference_scope.h"
#include "meeting_index.h"

#include <orv_doc/content_object.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace HarrowSupport::Comparators
{

/// What makes two members of a reuse list the same one: the address of a paint, the number of a content.
template <typename Paint>
const void* ReuseKey(const std::shared_ptr<const Paint>& paint)
{
    return paint.get();
}
inline std::uint64_t ReuseKey(std::uint64_t contentId)
{
    return contentId;
}

/// Whether this pair was compared before, so that nothing is left to do for the object that uses it. The only
/// question asked is who was met with whom: equal but distinct paints are compared each time, and no memory
/// of equal paints may stand in for this rule, or a changed sharing goes unseen.
///
/// The oldest entry of the list that has either member decides. If it has both, the pair was compared. If it
/// has one of them, the two documents share in different ways, which is a difference under the label, told as
/// whether the left and whether the right one is that of the entry. Any pair that is not known joins the
/// list, also such a one: it is reported again each time, since the older entry still decides.
template <typename Member, typename Key>
bool WasMetBefore(std::vector<std::pair<Member, Member>>& list, MeetingIndex<Key>& index, const Member& left,
                  const Member& right, const char* label, DifferenceScope<OrvDoc::ContentObject>& scope)
{
    const Key leftKey = ReuseKey(left);
    const Key rightKey = ReuseKey(right);
    const auto keyOf = [](const Member& member) { return Key(ReuseKey(member)); };
    const std::size_t oldest = index.FindOldest(list, leftKey, rightKey, keyOf);
    if (oldest != MeetingIndex<Key>::none) {
        const bool leftMatches = ReuseKey(list[oldest].first) == leftKey;
        const bool rightMatches = ReuseKey(list[oldest].second) == rightKey;
        if (leftMatches && rightMatches)
            return true;
        scope.AddValues(label, leftMatches, rightMatches);
    }
    list.emplace_back(left, right);
    index.TakeUp(list, keyOf);
    return false;
}

} // namespace HarrowSupport::Comparators
