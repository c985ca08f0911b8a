#include "pdf/reader/file/predictor.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

namespace OrvPdf
{

namespace
{

using Byte = unsigned char;

// A row of four million pixels in four channels of 16 bits.
constexpr long long LargestRow = 32 << 20;
constexpr long long TiffPredictor = 2;
constexpr long long FirstPngPredictor = 10;
constexpr long long LastPngPredictor = 15;

bool IsPng(const FilterStage& stage)
{
    return stage.predictor >= FirstPngPredictor;
}

std::size_t GetRowBytes(const FilterStage& stage)
{
    return static_cast<std::size_t>((stage.columns * stage.colors * stage.bitsPerComponent + 7) / 8);
}

Byte PredictPaeth(int left, int above, int corner)
{
    const int toLeft = std::abs(above - corner);
    const int toAbove = std::abs(left - corner);
    const int toCorner = std::abs(left + above - 2 * corner);
    if (toLeft <= toAbove && toLeft <= toCorner)
        return static_cast<Byte>(left);
    return static_cast<Byte>(toAbove <= toCorner ? above : corner);
}

/// Rows of PNG (its specification, chapter 9), each behind a byte that tells its kind.
class PngRows
{
public:
    explicit PngRows(const FilterStage& stage)
        : rowBytes(GetRowBytes(stage)),
          pixelBytes(static_cast<std::size_t>((stage.colors * stage.bitsPerComponent + 7) / 8))
    {}

    /// Moves the rows together; how many bytes they are then is returned.
    std::size_t Undo(Byte* bytes, std::size_t size)
    {
        const std::vector<Byte> first(std::min(rowBytes, size), 0);
        const Byte* above = first.data();
        std::size_t made = 0;
        for (std::size_t place = 0; place + 1 < size;) {
            const Byte kind = bytes[place];
            const std::size_t count = std::min(rowBytes, size - place - 1);
            Byte* const row = bytes + made;
            std::memmove(row, bytes + place + 1, count);
            UndoRow(kind, row, above, count);
            above = row;
            place += count + 1;
            made += count;
        }
        return made;
    }

    /// The first kind that is none; negative if all are known.
    int GetUnknownKind() const { return unknownKind; }

private:
    void UndoRow(Byte kind, Byte* row, const Byte* above, std::size_t count)
    {
        const std::size_t start = std::min(pixelBytes, count);
        switch (kind) {
        case 0:
            break;
        case 1:
            for (std::size_t i = start; i < count; ++i)
                row[i] = static_cast<Byte>(row[i] + row[i - pixelBytes]);
            break;
        case 2:
            for (std::size_t i = 0; i < count; ++i)
                row[i] = static_cast<Byte>(row[i] + above[i]);
            break;
        case 3:
            for (std::size_t i = 0; i < start; ++i)
                row[i] = static_cast<Byte>(row[i] + above[i] / 2);
            for (std::size_t i = start; i < count; ++i)
                row[i] = static_cast<Byte>(row[i] + (row[i - pixelBytes] + above[i]) / 2);
            break;
        case 4:
            for (std::size_t i = 0; i < start; ++i)
                row[i] = static_cast<Byte>(row[i] + above[i]);
            for (std::size_t i = start; i < count; ++i)
                row[i] = static_cast<Byte>(
                    row[i] + PredictPaeth(row[i - pixelBytes], above[i], above[i - pixelBytes]));
            break;
        default:
            unknownKind = unknownKind < 0 ? kind : unknownKind;
        }
    }

    std::size_t rowBytes;
    std::size_t pixelBytes;
    int unknownKind = -1;
};

void AddWords(Byte* row, std::size_t count, std::size_t colors)
{
    for (std::size_t i = 2 * colors; i + 1 < count; i += 2) {
        const Byte* const left = row + i - 2 * colors;
        const unsigned sum = (row[i] << 8 | row[i + 1]) + (left[0] << 8 | left[1]);
        row[i] = static_cast<Byte>(sum >> 8);
        row[i + 1] = static_cast<Byte>(sum);
    }
}

/// Samples of any depth, the highest bit first.
void AddSamples(Byte* row, std::size_t samples, std::size_t colors, std::size_t bits)
{
    const auto readBit = [row](std::size_t bit) { return row[bit / 8] >> (7 - bit % 8) & 1u; };
    for (std::size_t begin = colors * bits; begin + bits <= samples * bits; begin += bits) {
        unsigned carry = 0;
        for (std::size_t bit = begin + bits; bit-- > begin;) {
            const unsigned sum = readBit(bit) + readBit(bit - colors * bits) + carry;
            const unsigned mask = 1u << (7 - bit % 8);
            row[bit / 8] = static_cast<Byte>((row[bit / 8] & ~mask) | ((sum & 1u) != 0 ? mask : 0u));
            carry = sum >> 1;
        }
    }
}

/// Each sample of a TIFF row is relative to that of the pixel on its left.
void UndoTiff(const FilterStage& stage, Byte* bytes, std::size_t size)
{
    const std::size_t rowBytes = GetRowBytes(stage);
    const auto colors = static_cast<std::size_t>(stage.colors);
    const auto bits = static_cast<std::size_t>(stage.bitsPerComponent);
    const std::size_t samplesBits = static_cast<std::size_t>(stage.columns) * colors * bits;
    for (std::size_t begin = 0; begin < size; begin += rowBytes) {
        Byte* const row = bytes + begin;
        const std::size_t count = std::min(rowBytes, size - begin);
        if (bits == 8) {
            for (std::size_t i = colors; i < count; ++i)
                row[i] = static_cast<Byte>(row[i] + row[i - colors]);
        } else if (bits == 16) {
            AddWords(row, count, colors);
        } else {
            // What fills up the last byte of a row is no sample.
            const std::size_t wholeSamples = std::min(samplesBits, count * 8) / bits;
            AddSamples(row, wholeSamples, colors, bits);
        }
    }
}

} // namespace

bool HasPredictor(const FilterStage& stage)
{
    return stage.predictor > 1 && (stage.name == "FlateDecode" || stage.name == "LZWDecode");
}

bool IsReasonablePredictor(const FilterStage& stage)
{
    // Data that nobody can undo would come out as it stands in the file.
    const bool isKnown = stage.predictor == TiffPredictor ||
                         (stage.predictor >= FirstPngPredictor && stage.predictor <= LastPngPredictor);
    const auto isBetween = [](long long value, long long largest) { return value >= 1 && value <= largest; };
    if (!isKnown || !isBetween(stage.columns, LargestRow) || !isBetween(stage.colors, LargestRow) ||
        !isBetween(stage.bitsPerComponent, 32))
        return false;
    // Each factor is small enough for the product of all three to fit.
    return stage.columns * stage.colors <= LargestRow &&
           stage.columns * stage.colors * stage.bitsPerComponent / 8 <= LargestRow;
}

std::uint64_t CountPredictedBytes(const FilterStage& stage, std::uint64_t wanted)
{
    if (!IsPng(stage))
        return wanted;
    // Each row has a byte more, also the one that is begun.
    const std::uint64_t kinds = wanted / GetRowBytes(stage) + 1;
    return wanted > std::numeric_limits<std::uint64_t>::max() - kinds ? wanted : wanted + kinds;
}

void UndoPredictor(const FilterStage& stage, DecodingResult& result, std::uint64_t byteLimit)
{
    auto* const bytes = reinterpret_cast<Byte*>(result.bytes.GetData());
    std::size_t size = result.bytes.GetSize();
    if (IsPng(stage)) {
        PngRows rows(stage);
        size = rows.Undo(bytes, size);
        if (rows.GetUnknownKind() >= 0 && result.problem.empty())
            result.problem = "a row of the data of " + stage.name + " has the unknown kind " +
                             std::to_string(rows.GetUnknownKind());
    } else {
        UndoTiff(stage, bytes, size);
    }
    result.reachedLimit = result.reachedLimit || size > byteLimit;
    result.bytes.SetSize(static_cast<std::size_t>(std::min<std::uint64_t>(size, byteLimit)));
}

} // namespace OrvPdf
