#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace HarrowSupport::Comparators
{

/// Whether two lists have equally many entries and each left one has a right one that the test holds for. The
/// order plays no part, and a right entry may serve several left ones. Quadratic at worst; linear for lists
/// in one order, since the entry at the same place is tried first.
template <typename Entry, typename Test>
bool EachHasAPartner(const std::vector<Entry>& left, const std::vector<Entry>& right, Test test)
{
    if (left.size() != right.size())
        return false;
    for (std::size_t i = 0; i < left.size(); ++i) {
        const Entry& entry = left[i];
        const auto isPartner = [&entry, &test](const Entry& candidate) { return test(entry, candidate); };
        if (!isPartner(right[i]) && std::none_of(right.begin(), right.end(), isPartner))
            return false;
    }
    return true;
}

/// Whether two colour or mapping lists say the same, in whatever order: their flags agree, and the values do
/// by the test, name by name. Lists that stand for all separations agree if their values for all do, whatever
/// entries they hold.
template <typename List, typename Test>
bool NamedListsEqual(const List& left, const List& right, Test valuesEqual)
{
    if (left.all != right.all)
        return false;
    if (left.all && !valuesEqual(left.valueForAll, right.valueForAll))
        return false;
    if (left.overprint != right.overprint)
        return false;
    if (left.all)
        return true;
    return EachHasAPartner(left.entries, right.entries, [&valuesEqual](const auto& one, const auto& other) {
        return one.name == other.name && valuesEqual(one.value, other.value);
    });
}

} // namespace HarrowSupport::Comparators
