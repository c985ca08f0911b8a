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

} // namespace HarrowSupport::Comparators
