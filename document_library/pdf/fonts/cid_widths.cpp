#include "pdf/fonts/cid_widths.h"

#include <algorithm>
#include <map>

namespace OrvPdf
{

template <std::size_t Count>
void CidNumbers<Count>::AddRange(std::uint32_t first, std::uint32_t last, const Numbers& value)
{
    if (last < first)
        return;
    runs.push_back({first, last, static_cast<std::uint32_t>(numbers.size()), true});
    numbers.push_back(value);
}

template <std::size_t Count>
void CidNumbers<Count>::AddList(std::uint32_t first, const std::vector<Numbers>& list)
{
    const std::size_t room = std::size_t{UINT32_MAX} - first + 1;
    const std::size_t count = std::min(list.size(), room);
    if (count == 0)
        return;
    runs.push_back({first, first + static_cast<std::uint32_t>(count - 1),
                    static_cast<std::uint32_t>(numbers.size()), false});
    numbers.insert(numbers.end(), list.begin(), list.begin() + static_cast<std::ptrdiff_t>(count));
}

template <std::size_t Count>
typename CidNumbers<Count>::Run CidNumbers<Count>::Cut(const Run& run, std::uint32_t first,
                                                       std::uint32_t last)
{
    return {first, last, run.isRange ? run.index : run.index + (first - run.first), run.isRange};
}

template <std::size_t Count>
void CidNumbers<Count>::Finish()
{
    const bool isInOrder =
        std::adjacent_find(runs.begin(), runs.end(), [](const Run& left, const Run& right) {
            return right.first <= left.last;
        }) == runs.end();
    if (isInOrder)
        return;
    // By first CID. Each new run takes the place of what it covers of those before it.
    std::map<std::uint32_t, Run> placed;
    for (const Run& run : runs) {
        auto next = placed.upper_bound(run.first);
        if (next != placed.begin() && std::prev(next)->second.last >= run.first)
            --next;
        while (next != placed.end() && next->second.first <= run.last) {
            const Run covered = next->second;
            next = placed.erase(next);
            if (covered.first < run.first)
                placed.emplace(covered.first, Cut(covered, covered.first, run.first - 1));
            if (covered.last > run.last)
                next = placed.emplace(run.last + 1, Cut(covered, run.last + 1, covered.last)).first;
        }
        placed.emplace(run.first, run);
    }
    runs.clear();
    for (const auto& entry : placed)
        runs.push_back(entry.second);
}

template <std::size_t Count>
const typename CidNumbers<Count>::Numbers& CidNumbers<Count>::Find(std::uint32_t cid) const
{
    const auto behind = std::upper_bound(
        runs.begin(), runs.end(), cid, [](std::uint32_t value, const Run& run) { return value < run.first; });
    if (behind == runs.begin())
        return rest;
    const Run& run = *(behind - 1);
    if (cid > run.last)
        return rest;
    return numbers[run.isRange ? run.index : run.index + (cid - run.first)];
}

template class CidNumbers<1>;
template class CidNumbers<3>;

} // namespace OrvPdf
