// Order of steps: settle whether the two lists have a common form; compare the overprint and the all flag;
// then pair the values, by name if neither list stands for all separations. Pairing by position instead of by
// name would be quicker and wrong: lists come in the order in which their producer happened to name the
// separations.

#include "mapping_comparison.h"

#include "decode_equality.h"
#include "entry_search.h"

#include <orv_doc/content_object.h>

#include <algorithm>
#include <iterator>

namespace HarrowSupport::Comparators
{

namespace
{

using ChannelValue = OrvColor::ChannelMappingPolicy::Value;

std::size_t IndexOf(std::size_t index)
{
    return index;
}

std::size_t IndexOf(const ChannelValue& channel)
{
    return channel.index;
}

template <typename Value>
bool IsMapped(const Value& value)
{
    return IndexOf(value) != OrvColor::Unmapped;
}

bool MappingValuesEqual(std::size_t left, std::size_t right)
{
    return left == right;
}

bool MappingValuesEqual(const ChannelValue& left, const ChannelValue& right)
{
    return NameTheSameChannel(left, right);
}

template <typename List>
bool ListsEqual(const List& left, const List& right)
{
    return NamedListsEqual(left, right,
                           [](const auto& one, const auto& other) { return MappingValuesEqual(one, other); });
}

template <typename List>
bool HasOneMappedEntry(const List& list)
{
    return list.entries.size() == 1 && IsMapped(list.entries.front().value);
}

template <typename List>
bool HaveCommonForm(const List& left, const List& right)
{
    if (left.all && right.all)
        return IsMapped(left.valueForAll) == IsMapped(right.valueForAll);
    if (left.all)
        return IsMapped(left.valueForAll) && HasOneMappedEntry(right);
    if (right.all)
        return IsMapped(right.valueForAll) && HasOneMappedEntry(left);
    return true;
}

/// Moves the mapped entries to the front and sorts both parts by name. Returns the number of mapped entries.
/// Both steps are stable, so that entries of one name keep their order and equal input gives equal output.
template <typename List>
std::size_t SortMappedFirst(List& list)
{
    const auto byName = [](const auto& one, const auto& other) { return one.name < other.name; };
    const auto boundary = std::stable_partition(list.entries.begin(), list.entries.end(),
                                                [](const auto& entry) { return IsMapped(entry.value); });
    std::stable_sort(list.entries.begin(), boundary, byName);
    std::stable_sort(boundary, list.entries.end(), byName);
    return static_cast<std::size_t>(std::distance(list.entries.begin(), boundary));
}

template <typename Pair, typename List>
boost::optional<std::vector<Pair>> PairByName(List left, List right,
                                              DifferenceScope<OrvDoc::ContentObject>& scope)
{
    const std::size_t leftMapped = SortMappedFirst(left);
    const std::size_t rightMapped = SortMappedFirst(right);
    const bool namesAgree =
        leftMapped == rightMapped &&
        std::equal(left.entries.begin(), left.entries.end(), right.entries.begin(), right.entries.end(),
                   [](const auto& one, const auto& other) { return one.name == other.name; });
    if (!namesAgree) {
        if (!ListsEqual(left, right))
            scope.AddValues("ImageChannelsMapped", left, right);
        return boost::none;
    }
    std::vector<Pair> pairs;
    pairs.reserve(leftMapped);
    for (std::size_t i = 0; i < leftMapped; ++i)
        pairs.emplace_back(left.entries[i].value, right.entries[i].value);
    return pairs;
}

template <typename Pair, typename List>
boost::optional<std::vector<Pair>> CompareMappings(const List& left, const List& right,
                                                   DifferenceScope<OrvDoc::ContentObject>& scope)
{
    if (!HaveCommonForm(left, right)) {
        if (!ListsEqual(left, right))
            scope.AddValues("ImageChannelMapping", left, right);
        return boost::none;
    }
    if (left.overprint != right.overprint)
        scope.AddValues("ImageOverprint", left.overprint, right.overprint);
    if (left.all != right.all)
        scope.AddValues("ImageRegistrationColorSpace", left.all, right.all);

    if (!left.all && !right.all)
        return PairByName<Pair>(left, right, scope);
    if (left.all && right.all && !IsMapped(left.valueForAll))
        return std::vector<Pair>();
    const auto& leftValue = left.all ? left.valueForAll : left.entries.front().value;
    const auto& rightValue = right.all ? right.valueForAll : right.entries.front().value;
    return std::vector<Pair>(1, Pair(leftValue, rightValue));
}

} // namespace

bool MappingListsEqual(const ChannelMapping& left, const ChannelMapping& right)
{
    return ListsEqual(left, right);
}

bool MappingListsEqual(const SeparationMapping& left, const SeparationMapping& right)
{
    return ListsEqual(left, right);
}

boost::optional<std::vector<ChannelPair>>
CompareChannelMappings(const ChannelMapping& left, const ChannelMapping& right,
                       DifferenceScope<OrvDoc::ContentObject>& scope)
{
    return CompareMappings<ChannelPair>(left, right, scope);
}

boost::optional<std::vector<ComponentPair>>
CompareSeparationMappings(const SeparationMapping& left, const SeparationMapping& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope)
{
    return CompareMappings<ComponentPair>(left, right, scope);
}

} // namespace HarrowSupport::Comparators
