#pragma once

#include <algorithm>
#include <cstddef>
#include <unordered_map>
#include <utility>
#include <vector>

namespace HarrowSupport::Comparators
{

/// Finds the oldest entry of a reuse list that has a given left or a given right member, in constant time: a
/// scan of the list would make a document of many patterns cost their square.
///
/// The index is derived from the list and follows it by itself: entries that were appended since the last
/// call are taken up first. The list may grow and must not change otherwise.
template <typename Key>
class MeetingIndex
{
public:
    static constexpr std::size_t none = ~std::size_t{0};

    /// The position of the first entry with this left or this right member; `none` if there is none.
    /// `keyOf` gives the key of a member.
    template <typename Member, typename KeyOf>
    std::size_t FindOldest(const std::vector<std::pair<Member, Member>>& list, Key left, Key right,
                           KeyOf keyOf)
    {
        TakeUp(list, keyOf);
        return std::min(Find(firstWithLeft, left), Find(firstWithRight, right));
    }

    /// Takes up the entries that are new.
    template <typename Member, typename KeyOf>
    void TakeUp(const std::vector<std::pair<Member, Member>>& list, KeyOf keyOf)
    {
        for (; known < list.size(); ++known) {
            // An entry keeps its place where the key is there already, so the oldest one stands.
            firstWithLeft.emplace(keyOf(list[known].first), known);
            firstWithRight.emplace(keyOf(list[known].second), known);
        }
    }

    /// How many members of both sides are known. As long as that stays the same, the answers do too.
    std::size_t GetMemberCount() const { return firstWithLeft.size() + firstWithRight.size(); }

private:
    using Positions = std::unordered_map<Key, std::size_t>;

    static std::size_t Find(const Positions& positions, Key key)
    {
        const auto found = positions.find(key);
        return found == positions.end() ? none : found->second;
    }

    std::size_t known = 0;
    Positions firstWithLeft;
    Positions firstWithRight;
};

} // namespace HarrowSupport::Comparators
