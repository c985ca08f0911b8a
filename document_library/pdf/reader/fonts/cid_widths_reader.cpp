#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "pdf/reader/fonts/composite_font_reader.h"

namespace OrvPdf
{

namespace
{

bool ReadCid(QPDFObjectHandle object, std::uint32_t& cid)
{
    if (!object.isInteger() || object.getIntValue() < 0 || object.getIntValue() > INT32_MAX)
        return false;
    cid = static_cast<std::uint32_t>(object.getIntValue());
    return true;
}

/// `Count` numbers from `begin` on; false if one is none or there are not so many.
template <std::size_t Count>
bool ReadTuple(const std::vector<QPDFObjectHandle>& items, std::size_t begin, std::array<double, Count>& read)
{
    if (items.size() < Count || begin > items.size() - Count)
        return false;
    for (std::size_t index = 0; index < Count; ++index) {
        if (!ReadNumber(items[begin + index], read[index]))
            return false;
    }
    return true;
}

/// A tuple that is damaged becomes the rest's, so that those behind it keep their CIDs. Counts them.
template <std::size_t Count>
std::size_t AddList(std::uint32_t first, const std::vector<QPDFObjectHandle>& items,
                    CidNumbers<Count>& numbers)
{
    std::vector<std::array<double, Count>> list;
    list.reserve(items.size() / Count);
    std::size_t odd = items.size() % Count == 0 ? 0 : 1;
    for (std::size_t index = 0; index + Count <= items.size(); index += Count) {
        std::array<double, Count> tuple{};
        if (!ReadTuple(items, index, tuple)) {
            tuple = numbers.GetRest();
            ++odd;
        }
        list.push_back(tuple);
    }
    numbers.AddList(first, list);
    return odd;
}

template <std::size_t Count>
void ReadEntries(const char* key, QPDFObjectHandle array, CidNumbers<Count>& numbers, FontProblems& problems)
{
    if (array.isNull())
        return;
    if (!array.isArray()) {
        problems.Add(std::string(key) + " is no array");
        return;
    }
    const std::vector<QPDFObjectHandle> items = array.getArrayAsVector();
    std::size_t odd = 0;
    std::size_t index = 0;
    while (index < items.size()) {
        std::uint32_t first = 0;
        std::uint32_t last = 0;
        std::array<double, Count> tuple{};
        if (!ReadCid(items[index], first)) {
            ++odd;
            ++index;
        } else if (index + 1 < items.size() && QPDFObjectHandle(items[index + 1]).isArray()) {
            odd += AddList(first, QPDFObjectHandle(items[index + 1]).getArrayAsVector(), numbers);
            index += 2;
        } else if (index + 1 < items.size() && ReadCid(items[index + 1], last) && first <= last &&
                   ReadTuple(items, index + 2, tuple)) {
            numbers.AddRange(first, last, tuple);
            index += 2 + Count;
        } else {
            ++odd;
            ++index;
        }
    }
    numbers.Finish();
    if (odd > 0)
        problems.Add(std::to_string(odd) + " entries of " + key + " make no sense and are left out");
}

} // namespace

void ReadCidWidths(QPDFObjectHandle array, CidWidths& widths, FontProblems& problems)
{
    ReadEntries("W", array, widths, problems);
}

void ReadCidVerticalMetrics(QPDFObjectHandle array, CidVerticalMetrics& metrics, FontProblems& problems)
{
    ReadEntries("W2", array, metrics, problems);
}

} // namespace OrvPdf
