#include "pdf/fonts/codespace.h"

#include <algorithm>

namespace OrvPdf
{

namespace
{

/// The byte at `place`, counted from the first one of a code of `bytes` bytes.
std::uint32_t ByteAt(std::uint32_t code, std::uint32_t bytes, std::uint32_t place)
{
    return code >> (8 * (bytes - 1 - place)) & 0xFF;
}

bool IsByteWithin(const Codespace::Range& range, std::uint32_t place, std::uint32_t byte)
{
    return byte >= ByteAt(range.low, range.bytes, place) && byte <= ByteAt(range.high, range.bytes, place);
}

bool AreAllBytesWithin(const Codespace::Range& range, std::uint32_t code)
{
    for (std::uint32_t place = 0; place < range.bytes; ++place) {
        if (!IsByteWithin(range, place, ByteAt(code, range.bytes, place)))
            return false;
    }
    return true;
}

/// How many bytes at the front of a string the beginning of a range's codes allows.
std::uint32_t CountMatchingBytes(const Codespace::Range& range, std::string_view bytes)
{
    const auto count = static_cast<std::uint32_t>(std::min<std::size_t>(range.bytes, bytes.size()));
    std::uint32_t place = 0;
    while (place < count && IsByteWithin(range, place, static_cast<unsigned char>(bytes[place])))
        ++place;
    return place;
}

/// Whether all bytes but the first may have any value.
bool HasOpenEnd(const Codespace::Range& range)
{
    const std::uint32_t mask = range.bytes == 1 ? 0 : LargestCode(range.bytes - 1);
    return (range.low & mask) == 0 && (range.high & mask) == mask;
}

} // namespace

bool Codespace::Contains(const Range& range, std::uint32_t value)
{
    return AreAllBytesWithin(range, value);
}

bool Codespace::Add(const Range& range)
{
    if (range.bytes == 0 || range.bytes > maximalCodeBytes || !AreAllBytesWithin(range, range.low))
        return false;
    const bool isThere = std::any_of(ranges.begin(), ranges.end(), [&range](const Range& other) {
        return other.bytes == range.bytes && AreAllBytesWithin(other, range.low) &&
               AreAllBytesWithin(other, range.high);
    });
    if (isThere)
        return true;
    if (ranges.size() == maximalRanges)
        return false;
    ranges.push_back(range);
    return true;
}

void Codespace::Finish()
{
    std::uint32_t shortest = maximalCodeBytes;
    for (const Range& range : ranges)
        shortest = std::min(shortest, range.bytes);
    for (std::uint32_t first = 0; first < leads.size(); ++first) {
        Lead& lead = leads[first];
        lead = {LeadKind::None, static_cast<std::uint8_t>(shortest), 0};
        for (std::size_t i = 0; i < ranges.size(); ++i) {
            if (!IsByteWithin(ranges[i], 0, first))
                continue;
            if (lead.kind != LeadKind::None) {
                lead.kind = LeadKind::Several;
                break;
            }
            lead = {HasOpenEnd(ranges[i]) ? LeadKind::Whole : LeadKind::One,
                    static_cast<std::uint8_t>(ranges[i].bytes), static_cast<std::uint16_t>(i)};
        }
    }
}

std::uint32_t Codespace::GetUniformBytes() const
{
    const bool isUniform = std::all_of(ranges.begin(), ranges.end(), [this](const Range& range) {
        return range.bytes == ranges.front().bytes;
    });
    return ranges.empty() || !isUniform ? 0 : ranges.front().bytes;
}

Codespace::Match Codespace::TakeSlowly(std::string_view bytes) const
{
    // A range that matches as a whole counts before longer ones that match as far; among ranges that match
    // in part only, the longest match decides, then the shortest code.
    const Range* chosen = nullptr;
    std::uint32_t chosenMatch = 0;
    bool isValid = false;
    for (const Range& range : ranges) {
        const std::uint32_t match = CountMatchingBytes(range, bytes);
        const bool isWhole = match == range.bytes;
        const bool isBetter = !chosen || (isWhole != isValid                ? isWhole
                                          : isWhole || match == chosenMatch ? range.bytes < chosen->bytes
                                                                            : match > chosenMatch);
        if (isBetter) {
            chosen = &range;
            chosenMatch = match;
            isValid = isWhole;
        }
    }
    Match result;
    result.bytes =
        static_cast<std::uint32_t>(std::min<std::size_t>(chosen ? chosen->bytes : 1, bytes.size()));
    for (std::uint32_t i = 0; i < result.bytes; ++i)
        result.value = result.value << 8 | static_cast<unsigned char>(bytes[i]);
    result.isValid = isValid;
    return result;
}

} // namespace OrvPdf
