#include "pdf/writer/fonts/glyph_widths.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "pdf/writer/file/object_maker.h"

namespace OrvPdf
{

namespace
{

/// The numbers of one CID, of any count.
using Numbers = std::vector<double>;
using Entries = std::vector<std::pair<std::uint32_t, Numbers>>;

void AppendAll(std::vector<QPDFObjectHandle>& items, const Numbers& numbers)
{
    for (const double number : numbers)
        items.push_back(ObjectMaker::MakeNumber(number));
}

QPDFObjectHandle MakeCode(std::uint32_t code)
{
    return QPDFObjectHandle::newInteger(code);
}

bool IsInteger(double number)
{
    constexpr double largest = 1e6;
    return std::abs(number) <= largest && std::trunc(number) == number;
}

/// How many entries from there on have consecutive codes and equal numbers.
std::size_t CountEqual(const Entries& entries, std::size_t start)
{
    std::size_t end = start + 1;
    while (end < entries.size() && entries[end].first == entries[end - 1].first + 1 &&
           entries[end].second == entries[start].second)
        ++end;
    return end - start;
}

/// The array of `W` or `W2` (ISO 32000-1, 9.7.4.3): `first last numbers` for equal neighbours and
/// `first [numbers...]` for others.
QPDFObjectHandle MakeWidthArray(const Entries& entries)
{
    // Fewer are shorter as a list.
    constexpr std::size_t shortestRange = 4;
    std::vector<QPDFObjectHandle> items;
    for (std::size_t index = 0; index < entries.size();) {
        items.push_back(MakeCode(entries[index].first));
        const std::size_t equal = CountEqual(entries, index);
        if (equal >= shortestRange) {
            items.push_back(MakeCode(entries[index + equal - 1].first));
            AppendAll(items, entries[index].second);
            index += equal;
            continue;
        }
        std::vector<QPDFObjectHandle> list;
        do {
            AppendAll(list, entries[index].second);
            ++index;
        } while (index < entries.size() && entries[index].first == entries[index - 1].first + 1 &&
                 CountEqual(entries, index) < shortestRange);
        items.push_back(QPDFObjectHandle::newArray(list));
    }
    return QPDFObjectHandle::newArray(items);
}

/// The most frequent numbers; of equally frequent ones the smallest.
Numbers FindUsual(const std::vector<Numbers>& all)
{
    std::map<Numbers, std::size_t> counts;
    for (const Numbers& numbers : all)
        ++counts[numbers];
    const auto usual = std::max_element(counts.begin(), counts.end(), [](const auto& one, const auto& other) {
        return one.second < other.second;
    });
    return usual == counts.end() ? Numbers() : usual->first;
}

} // namespace

void SetWidths(QPDFObjectHandle font, const GlyphWidths& widths)
{
    std::vector<Numbers> integers;
    for (const auto& [code, width] : widths) {
        if (IsInteger(width))
            integers.push_back({width});
    }
    const Numbers usual = FindUsual(integers);
    Entries entries;
    for (const auto& [code, width] : widths) {
        if (Numbers{width} != usual)
            entries.push_back({code, {width}});
    }
    if (!usual.empty())
        font.replaceKey("/DW", ObjectMaker::MakeNumber(usual.front()));
    if (!entries.empty())
        font.replaceKey("/W", MakeWidthArray(entries));
}

void SetVerticalWidths(QPDFObjectHandle font, const VerticalWidths& metrics, const GlyphWidths& widths)
{
    std::vector<Numbers> all;
    for (const auto& [code, metric] : metrics)
        all.push_back({metric.originY, metric.advance});
    const Numbers usual = FindUsual(all);
    if (usual.empty())
        return;
    Entries entries;
    for (const auto& [code, metric] : metrics) {
        const auto width = widths.find(code);
        const bool isCentred = width != widths.end() && metric.originX == width->second / 2;
        if (!isCentred || Numbers{metric.originY, metric.advance} != usual)
            entries.push_back({code, {metric.advance, metric.originX, metric.originY}});
    }
    font.replaceKey("/DW2", QPDFObjectHandle::newArray(
                                {ObjectMaker::MakeNumber(usual[0]), ObjectMaker::MakeNumber(usual[1])}));
    if (!entries.empty())
        font.replaceKey("/W2", MakeWidthArray(entries));
}

} // namespace OrvPdf
