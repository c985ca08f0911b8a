#include "pdf/fonts/code_ranges.h"

#include <cstddef>
#include <queue>
#include <utility>

namespace OrvPdf
{

namespace
{

bool GoesOn(const CodeRange& range, const CodeRange& next)
{
    return range.group == next.group && range.high + std::uint64_t{1} == next.low &&
           range.first + std::uint64_t{next.low - range.low} == next.first;
}

void AppendJoined(std::vector<CodeRange>& ranges, const CodeRange& next)
{
    if (!ranges.empty() && GoesOn(ranges.back(), next))
        ranges.back().high = next.high;
    else
        ranges.push_back(next);
}

struct OrderedRange
{
    CodeRange range;
    std::size_t order;

    bool operator<(const OrderedRange& other) const { return order < other.order; }
};

/// Walks over the codes from the bottom to the top, with the ranges that hold the present code in a heap,
/// the one that was added last on top.
std::vector<CodeRange> WithoutOverlaps(const std::vector<OrderedRange>& sorted)
{
    std::vector<CodeRange> result;
    std::priority_queue<OrderedRange> open;
    std::uint64_t at = 0;
    std::size_t next = 0;
    while (next < sorted.size() || !open.empty()) {
        if (open.empty())
            at = sorted[next].range.low;
        for (; next < sorted.size() && sorted[next].range.low <= at; ++next)
            open.push(sorted[next]);
        while (!open.empty() && open.top().range.high < at)
            open.pop();
        if (open.empty())
            continue;
        const CodeRange top = open.top().range;
        std::uint32_t end = top.high;
        if (next < sorted.size() && sorted[next].range.low <= end)
            end = sorted[next].range.low - 1;
        const auto begin = static_cast<std::uint32_t>(at);
        AppendJoined(result, {begin, end, top.ValueOf(begin), top.group});
        at = std::uint64_t{end} + 1;
    }
    return result;
}

} // namespace

void CodeRanges::Finish()
{
    const auto isBefore = [](const CodeRange& left, const CodeRange& right) { return left.high < right.low; };
    std::vector<CodeRange> result;
    const auto firstOutOfOrder =
        std::adjacent_find(ranges.begin(), ranges.end(), [&](const CodeRange& left, const CodeRange& right) {
            return !isBefore(left, right);
        });
    if (firstOutOfOrder == ranges.end()) {
        for (const CodeRange& range : ranges)
            AppendJoined(result, range);
    } else {
        std::vector<OrderedRange> sorted;
        sorted.reserve(ranges.size());
        for (std::size_t order = 0; order < ranges.size(); ++order)
            sorted.push_back({ranges[order], order});
        std::sort(sorted.begin(), sorted.end(), [](const OrderedRange& left, const OrderedRange& right) {
            return left.range.low < right.range.low;
        });
        result = WithoutOverlaps(sorted);
    }
    result.shrink_to_fit();
    ranges = std::move(result);
}

} // namespace OrvPdf
