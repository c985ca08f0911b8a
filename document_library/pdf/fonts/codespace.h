#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace OrvPdf
{

/// The most bytes that a character code has (ISO 32000-1, 9.7.6.2).
constexpr std::uint32_t maximalCodeBytes = 4;

constexpr std::uint32_t LargestCode(std::uint32_t bytes)
{
    return 0xFFFFFFFF >> (8 * (maximalCodeBytes - bytes));
}

/// Tells where the codes of a shown string end (ISO 32000-1, 9.7.6.2 and 9.7.6.3).
class Codespace
{
public:
    /// Codes of `bytes` bytes, of which each byte lies between those of `low` and `high` at its place.
    struct Range
    {
        std::uint32_t bytes = 1;
        std::uint32_t low = 0;
        std::uint32_t high = 0;
    };

    struct Match
    {
        std::uint32_t value = 0;
        std::uint32_t bytes = 1;
        /// Whether the code is in one of the ranges.
        bool isValid = false;
    };

    /// The bound of Add; real maps have up to five. It bounds what a byte of a shown string can cost.
    static constexpr std::size_t maximalRanges = 256;

    /// False if the range holds no code, or if there are too many already; it is left out then.
    bool Add(const Range& range);
    /// To be called once, after the last Add.
    void Finish();

    const std::vector<Range>& GetRanges() const { return ranges; }
    /// The bytes of each code if all have as many, else 0.
    std::uint32_t GetUniformBytes() const;

    /// The code at the front of `bytes`, which must not be empty.
    Match Take(std::string_view bytes) const
    {
        const Lead& lead = leads[static_cast<unsigned char>(bytes[0])];
        if (lead.kind == LeadKind::Several || bytes.size() < lead.bytes)
            return TakeSlowly(bytes);
        std::uint32_t value = 0;
        for (std::uint32_t i = 0; i < lead.bytes; ++i)
            value = value << 8 | static_cast<unsigned char>(bytes[i]);
        const bool isValid = lead.kind == LeadKind::Whole ||
                             (lead.kind == LeadKind::One && Contains(ranges[lead.range], value));
        return {value, lead.bytes, isValid};
    }

private:
    /// What the first byte of a code tells about the code.
    enum class LeadKind : std::uint8_t
    {
        None,    ///< No range begins with it.
        Whole,   ///< Any bytes may follow.
        One,     ///< One range begins with it.
        Several, ///< More do, so that the next bytes decide.
    };

    struct Lead
    {
        LeadKind kind = LeadKind::None;
        std::uint8_t bytes = 1;
        std::uint16_t range = 0;
    };

    static bool Contains(const Range& range, std::uint32_t value);
    Match TakeSlowly(std::string_view bytes) const;

    std::vector<Range> ranges;
    std::array<Lead, 256> leads{};
};

} // namespace OrvPdf
