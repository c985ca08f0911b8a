#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace OrvPdf
{

/// Bits of a string, the highest of each byte first. Behind the end stand zeros without end.
class FaxBits
{
public:
    explicit FaxBits(std::string_view givenBytes) : bytes(givenBytes), end(givenBytes.size() * 8) {}

    /// The next bits as a number; at most 25.
    std::uint32_t Peek(std::size_t count) const
    {
        std::uint32_t value = 0;
        const std::size_t first = place / 8;
        for (std::size_t i = first; i < first + 4; ++i)
            value = value << 8 | (i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u);
        return value << (place % 8) >> (32 - count);
    }

    void Skip(std::size_t count) { place += count; }

    void SkipToByte() { place = (place + 7) / 8 * 8; }

    /// Zeros before the next one; those up to the end if none comes. Linear in their number.
    std::size_t CountZeros() const
    {
        std::size_t at = place;
        while (at < end) {
            const unsigned byte = static_cast<unsigned char>(bytes[at / 8]);
            if (at % 8 == 0 && byte == 0)
                at += 8;
            else if ((byte >> (7 - at % 8) & 1u) == 0)
                ++at;
            else
                break;
        }
        return at > place ? at - place : 0;
    }

    /// No bit is left.
    bool IsAtEnd() const { return place >= end; }
    /// Bits were skipped that are not there.
    bool IsBehindEnd() const { return place > end; }
    bool HasBehind(std::size_t count) const { return place <= end && end - place > count; }

private:
    std::string_view bytes;
    std::size_t end;
    std::size_t place = 0;
};

} // namespace OrvPdf
