#include "pdf/pictures/fax_decoder.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

#include "pdf/pictures/fax_bits.h"
#include "pdf/pictures/fax_codes.h"
#include "pdf/pictures/fax_line.h"
#include "pdf/pictures/raster_size.h"

namespace OrvPdf
{

namespace
{

// An end-of-line code: eleven zeros, any number of zeros before them for filling, and a one.
constexpr std::size_t endOfLineZeros = 11;
constexpr std::size_t endOfLineBits = 12;
constexpr std::size_t firstRows = 16;

/// Reads rows of one picture, one after the other. Whether there are end-of-line codes is seen from the data:
/// files are often wrong about it, and no row begins like one.
class FaxRows
{
public:
    FaxRows(std::string_view data, const FaxParameters& givenParameters, std::size_t columns)
        : parameters(givenParameters), bits(data), line(columns), above(columns)
    {}

    /// The next row as far as it can be read; null at the end of the data.
    const FaxLine* Next()
    {
        if (isOver || !Begin())
            return nullptr;
        ++rowCount;
        std::swap(line, above);
        const bool isWhole = isBelow ? line.ReadBelow(bits, above) : line.ReadAlone(bits);
        if (!isWhole)
            Recover();
        return &line;
    }

    /// What was wrong; empty if nothing was.
    std::string GetProblem() const
    {
        if (damagedRows == 0)
            return {};
        if (endedEarly && damagedRows == 1)
            return "the fax data ends within row " + std::to_string(firstDamaged);
        return "the fax data is damaged in " + std::to_string(damagedRows) + " rows, the first is row " +
               std::to_string(firstDamaged);
    }

private:
    /// Goes to the first code of a row and finds how the row is coded. False if there is no row.
    bool Begin()
    {
        if (parameters.k < 0)
            return BeginGroupFour();
        // Zeros that fill up a byte, and those that the next code begins with, would look like an end of
        // line.
        if (parameters.encodedByteAlign && !parameters.endOfLine)
            bits.SkipToByte();
        std::size_t ends = 0;
        isBelow = false;
        while (SkipEndOfLine()) {
            ++ends;
            ReadTag();
        }
        // Two in a row, of the six that the standard asks for, end the data.
        if (ends > 1)
            return false;
        if (ends == 0) {
            if (parameters.encodedByteAlign)
                bits.SkipToByte();
            ReadTag();
        }
        return !HasOnlyFilling();
    }

    bool BeginGroupFour()
    {
        if (parameters.encodedByteAlign)
            bits.SkipToByte();
        if (rowCount == 0 && bits.Peek(endOfLineBits) == 1 && bits.Peek(2 * endOfLineBits) != 0x001001)
            bits.Skip(endOfLineBits);
        isBelow = true;
        return bits.Peek(endOfLineBits) != 1 && !HasOnlyFilling();
    }

    bool SkipEndOfLine()
    {
        const std::size_t zeros = bits.CountZeros();
        if (zeros < endOfLineZeros || !bits.HasBehind(zeros))
            return false;
        bits.Skip(zeros + 1);
        return true;
    }

    /// In mixed data, a bit before each row says how it is coded.
    void ReadTag()
    {
        if (parameters.k <= 0)
            return;
        isBelow = bits.Peek(1) == 0;
        bits.Skip(1);
    }

    bool HasOnlyFilling() const { return bits.IsAtEnd() || !bits.HasBehind(bits.CountZeros()); }

    /// Behind damage only an end of line tells where a row begins, and only one that is coded by itself is
    /// sure to be right.
    void Recover()
    {
        ++damagedRows;
        if (firstDamaged == 0)
            firstDamaged = rowCount;
        endedEarly = !bits.HasBehind(longestFaxCode);
        if (parameters.k < 0) {
            isOver = true;
            return;
        }
        for (;;) {
            const std::size_t zeros = bits.CountZeros();
            if (!bits.HasBehind(zeros)) {
                isOver = true;
                return;
            }
            const bool isEnd = zeros >= endOfLineZeros;
            // The code stays for the beginning of the next row.
            if (isEnd && (parameters.k == 0 || IsTaggedAlone(zeros + 1)))
                return;
            bits.Skip(zeros + 1);
        }
    }

    bool IsTaggedAlone(std::size_t ahead) const
    {
        FaxBits behind = bits;
        behind.Skip(ahead);
        return behind.Peek(1) == 1;
    }

    const FaxParameters& parameters;
    FaxBits bits;
    FaxLine line;
    FaxLine above;
    bool isBelow = false;
    bool isOver = false;
    bool endedEarly = false;
    std::uint64_t rowCount = 0;
    std::uint64_t damagedRows = 0;
    std::uint64_t firstDamaged = 0;
};

/// The rows that the decoder gives at most; 0 if the data alone says it.
std::size_t CountRows(const FaxParameters& parameters, std::size_t height)
{
    // The end-of-block code overrules the number of rows.
    if (parameters.endOfBlock || parameters.rows <= 0)
        return height;
    const std::size_t rows = static_cast<std::size_t>(std::min<std::uint64_t>(
        static_cast<std::uint64_t>(parameters.rows), std::numeric_limits<std::size_t>::max()));
    return height == 0 ? rows : std::min(rows, height);
}

/// Adds a row of white to the raster and gives its start. The room doubles, up to `mostRows`.
unsigned char* AddWhiteRow(Raster& raster, std::size_t rowBytes, std::size_t mostRows, bool blackIs1)
{
    DecodedBytes& rows = raster.rows;
    const std::size_t size = rows.GetSize();
    if (rows.GetCapacity() == size)
        rows.Reserve(std::min(mostRows, size / rowBytes * 2 + firstRows) * rowBytes);
    auto* row = reinterpret_cast<unsigned char*>(rows.GetData()) + size;
    std::memset(row, blackIs1 ? 0 : 0xFF, rowBytes);
    if (!blackIs1 && raster.width % 8 != 0)
        row[rowBytes - 1] = static_cast<unsigned char>(0xFF << (8 - raster.width % 8));
    rows.SetSize(size + rowBytes);
    return row;
}

} // namespace

Raster DecodeFax(std::string_view data, const FaxParameters& parameters, std::size_t height,
                 const RasterLimits& limits)
{
    Raster raster;
    raster.channels = 1;
    raster.bits = 1;
    if (parameters.columns <= 0) {
        raster.problem =
            "the fax data has " + std::to_string(parameters.columns) + " columns, and needs at least one";
        return raster;
    }
    raster.width = static_cast<std::size_t>(parameters.columns);
    const std::size_t wanted = CountRows(parameters, height);
    raster.height = std::max<std::size_t>(wanted, 1);
    if (!FitsLimits(raster, 0, limits))
        return raster;
    raster.height = wanted;
    const auto rowBytes = static_cast<std::size_t>(BytesOfRasterRow(raster.width, 1, 1));
    const auto mostRows =
        wanted != 0
            ? wanted
            : static_cast<std::size_t>(std::min(limits.samples / raster.width, limits.bytes / rowBytes));

    FaxRows rows(data, parameters, raster.width);
    std::size_t count = 0;
    const FaxLine* line = rows.Next();
    for (; line != nullptr && count < mostRows; ++count) {
        line->Paint(AddWhiteRow(raster, rowBytes, mostRows, parameters.blackIs1), parameters.blackIs1);
        line = count + 1 == wanted ? nullptr : rows.Next();
    }
    TellProblem(raster, rows.GetProblem());
    if (wanted == 0) {
        // One row more is what goes beyond a limit, and says which.
        raster.height = line != nullptr ? count + 1 : count;
        FitsLimits(raster, 0, limits);
        raster.height = count;
    } else if (count < wanted) {
        TellProblem(raster, "the fax data ends after " + std::to_string(count) + " rows of " +
                                std::to_string(wanted));
    }
    // Zeros would be black.
    for (; count < wanted; ++count)
        AddWhiteRow(raster, rowBytes, mostRows, parameters.blackIs1);
    return raster;
}

} // namespace OrvPdf
