#include "pdf/pictures/fax_line.h"

#include <algorithm>

#include "pdf/pictures/fax_codes.h"

namespace OrvPdf
{

namespace
{

enum class Mode
{
    Pass,
    Horizontal,
    Vertical,
    Unknown
};

struct ModeCode
{
    Mode mode = Mode::Unknown;
    std::size_t bits = 0;
    /// How far to the right of the change above the row changes.
    int shift = 0;
};

ModeCode FindMode(std::uint32_t sevenBits)
{
    static constexpr struct
    {
        std::uint32_t code;
        ModeCode mode;
    } modes[] = {{1, {Mode::Vertical, 1, 0}},   {3, {Mode::Vertical, 3, 1}}, {2, {Mode::Vertical, 3, -1}},
                 {1, {Mode::Horizontal, 3, 0}}, {1, {Mode::Pass, 4, 0}},     {3, {Mode::Vertical, 6, 2}},
                 {2, {Mode::Vertical, 6, -2}},  {3, {Mode::Vertical, 7, 3}}, {2, {Mode::Vertical, 7, -3}}};
    for (const auto& entry : modes) {
        if (sevenBits >> (7 - entry.mode.bits) == entry.code)
            return entry.mode;
    }
    return {};
}

void SetBits(unsigned char* row, std::size_t begin, std::size_t end, bool toOne)
{
    const auto setInByte = [row, toOne](std::size_t byte, unsigned mask) {
        row[byte] = static_cast<unsigned char>(toOne ? row[byte] | mask : row[byte] & ~mask);
    };
    const std::size_t firstByte = begin / 8;
    const std::size_t lastByte = (end - 1) / 8;
    const unsigned head = 0xFFu >> begin % 8;
    const unsigned tail = 0xFFu & 0xFFu << (7 - (end - 1) % 8);
    if (firstByte == lastByte) {
        setInByte(firstByte, head & tail);
        return;
    }
    setInByte(firstByte, head);
    std::fill(row + firstByte + 1, row + lastByte, static_cast<unsigned char>(toOne ? 0xFF : 0));
    setInByte(lastByte, tail);
}

} // namespace

bool FaxLine::ReadRun(FaxBits& bits, bool isBlack, std::uint64_t& run)
{
    constexpr std::uint16_t terminating = 64;
    for (;;) {
        const FaxRunCode& code = FindFaxRun(isBlack, bits.Peek(longestFaxCode));
        if (code.bits == 0)
            return false;
        bits.Skip(code.bits);
        if (bits.IsBehindEnd())
            return false;
        run += code.run;
        if (code.run < terminating)
            return true;
    }
}

bool FaxLine::ReadAlone(FaxBits& bits)
{
    changes.clear();
    std::uint64_t place = 0;
    for (bool isBlack = false; place < columns; isBlack = !isBlack) {
        if (!ReadRun(bits, isBlack, place))
            return Break(place);
        Change(place);
    }
    return place == columns;
}

bool FaxLine::ReadBelow(FaxBits& bits, const FaxLine& above)
{
    changes.clear();
    const std::vector<std::size_t>& upper = above.changes;
    const auto upperChange = [&upper, this](std::size_t index) {
        return index < upper.size() ? upper[index] : columns;
    };
    std::uint64_t place = 0;
    // Only at the left margin does a change above count that stands at the place itself.
    bool isAtMargin = true;
    bool isBlack = false;
    // Of the changes above, those of even index begin black and count below white, and the other way round.
    std::size_t index = 0;
    while (place < columns) {
        while (index < upper.size() && (upper[index] < place || (upper[index] == place && !isAtMargin)))
            index += 2;
        const ModeCode code = FindMode(bits.Peek(7));
        bits.Skip(code.bits);
        if (code.mode == Mode::Unknown || bits.IsBehindEnd())
            return Break(place);
        if (code.mode == Mode::Pass) {
            place = upperChange(index + 1);
        } else if (code.mode == Mode::Horizontal) {
            for (const bool isRunBlack : {isBlack, !isBlack}) {
                if (!ReadRun(bits, isRunBlack, place))
                    return Break(place);
                Change(place);
            }
        } else {
            const std::uint64_t change = upperChange(index);
            if (code.shift < 0 && change < place + static_cast<std::uint64_t>(-code.shift))
                return Break(place);
            place = change + static_cast<std::uint64_t>(std::int64_t{code.shift});
            Change(place);
            isBlack = !isBlack;
            // A shift to the left can bring a change of the other kind, before this one, to the right again.
            index = index > 0 ? index - 1 : index + 1;
        }
        isAtMargin = false;
    }
    return place == columns;
}

void FaxLine::Paint(unsigned char* row, bool blackIs1) const
{
    for (std::size_t i = 0; i < changes.size(); i += 2)
        SetBits(row, changes[i], i + 1 < changes.size() ? changes[i + 1] : columns, blackIs1);
}

} // namespace OrvPdf
