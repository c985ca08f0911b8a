#include "library_support/plain_filters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <vector>

#include <zlib.h>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t clearCode = 256;
constexpr std::uint32_t endCode = 257;
constexpr std::uint32_t firstFreeCode = 258;
constexpr std::uint32_t codeCount = 4096;

bool IsBlank(char byte)
{
    return byte == ' ' || byte == '\t' || byte == '\r' || byte == '\n' || byte == '\f' || byte == '\0';
}

int HexValue(char byte)
{
    if (byte >= '0' && byte <= '9')
        return byte - '0';
    if (byte >= 'a' && byte <= 'f')
        return byte - 'a' + 10;
    return byte >= 'A' && byte <= 'F' ? byte - 'A' + 10 : -1;
}

std::uint32_t ByteAt(std::string_view bytes, std::size_t index)
{
    return static_cast<unsigned char>(bytes[index]);
}

/// The bytes of a group of base 85 that has so many digits, the missing ones filled up. False if the value
/// does not fit into four bytes.
bool AppendGroup(std::string& bytes, std::string digits)
{
    constexpr std::size_t whole = 5;
    const std::size_t count = digits.size();
    digits.resize(whole, 'u');
    std::uint64_t value = 0;
    for (const char digit : digits)
        value = value * 85 + static_cast<std::uint64_t>(digit - '!');
    for (std::size_t place = 0; place + 1 < count; ++place)
        bytes += static_cast<char>(value >> (24 - 8 * place));
    return value <= 0xFFFFFFFFu && count != 1;
}

/// How many bits the code takes that comes when so many others have come since the table was cleared: each
/// of these but the first has made an entry.
unsigned CodeBits(std::size_t codesBefore, bool changesEarly)
{
    const std::size_t entries = firstFreeCode + std::max<std::size_t>(codesBefore, 1) - 1;
    const std::size_t next = entries + (changesEarly ? 1 : 0);
    return next >= 2048 ? 12 : next >= 1024 ? 11 : next >= 512 ? 10 : 9;
}

/// The highest bit first.
class BitWriter
{
public:
    void Add(std::uint32_t value, unsigned count)
    {
        for (unsigned bit = count; bit-- > 0;) {
            if (used % 8 == 0)
                bytes += '\0';
            bytes.back() = static_cast<char>(bytes.back() | (value >> bit & 1u) << (7 - used % 8));
            ++used;
        }
    }

    std::string bytes;

private:
    std::size_t used = 0;
};

std::uint32_t GetBits(std::string_view bytes, std::size_t firstBit, unsigned count)
{
    std::uint32_t value = 0;
    for (std::size_t bit = firstBit; bit < firstBit + count; ++bit)
        value = value << 1 | (ByteAt(bytes, bit / 8) >> (7 - bit % 8) & 1u);
    return value;
}

int Paeth(int left, int above, int corner)
{
    const int estimate = left + above - corner;
    const int toLeft = std::abs(estimate - left);
    const int toAbove = std::abs(estimate - above);
    const int toCorner = std::abs(estimate - corner);
    if (toLeft <= toAbove && toLeft <= toCorner)
        return left;
    return toAbove <= toCorner ? above : corner;
}

/// What a PNG row of that kind is told relative to, for the byte at a place of a row whose bytes before it
/// are known.
int Predict(int kind, const std::string& row, const std::string& above, std::size_t place, std::size_t step)
{
    const auto at = [place](const std::string& bytes, std::size_t back) {
        return place < back ? 0 : static_cast<int>(static_cast<unsigned char>(bytes[place - back]));
    };
    switch (kind) {
    case 1:
        return at(row, step);
    case 2:
        return at(above, 0);
    case 3:
        return (at(row, step) + at(above, 0)) / 2;
    case 4:
        return Paeth(at(row, step), at(above, 0), at(above, step));
    default:
        return 0;
    }
}

std::size_t GetPixelBytes(const OrvPdf::FilterStage& stage)
{
    return std::max<std::size_t>(1, static_cast<std::size_t>(stage.colors * stage.bitsPerComponent + 7) / 8);
}

bool IsPng(const OrvPdf::FilterStage& stage)
{
    return stage.predictor >= 10;
}

/// Each sample of a TIFF row relative to that of the pixel on its left, or, `isUndone`, the other way round.
std::string AddPixels(std::string_view row, const OrvPdf::FilterStage& stage, bool isUndone)
{
    const auto bits = static_cast<unsigned>(stage.bitsPerComponent);
    const auto colors = static_cast<std::size_t>(stage.colors);
    const std::size_t count = static_cast<std::size_t>(stage.columns) * colors;
    std::vector<std::uint32_t> before(colors, 0);
    BitWriter writer;
    for (std::size_t sample = 0; sample < count; ++sample) {
        const std::uint32_t given = GetBits(row, sample * bits, bits);
        std::uint32_t& last = before[sample % colors];
        const std::uint32_t made = isUndone ? last + given : given - last;
        last = isUndone ? made : given;
        writer.Add(made, bits);
    }
    // What fills up the last byte is no sample.
    for (std::size_t bit = count * bits; bit < row.size() * 8; ++bit)
        writer.Add(GetBits(row, bit, 1), 1);
    return writer.bytes;
}

PlainData UndoPng(std::string_view bytes, const OrvPdf::FilterStage& stage)
{
    PlainData plain;
    const std::size_t rowBytes = GetRowBytes(stage);
    std::string above(rowBytes, '\0');
    for (std::size_t begin = 0; begin + rowBytes < bytes.size(); begin += rowBytes + 1) {
        const int kind = static_cast<int>(ByteAt(bytes, begin));
        plain.isSound = plain.isSound && kind <= 4;
        std::string row(rowBytes, '\0');
        for (std::size_t place = 0; place < rowBytes; ++place) {
            const int difference = static_cast<int>(ByteAt(bytes, begin + 1 + place));
            row[place] =
                static_cast<char>(difference + Predict(kind, row, above, place, GetPixelBytes(stage)));
        }
        plain.bytes += row;
        above = row;
    }
    plain.isSound = plain.isSound && bytes.size() % (rowBytes + 1) == 0;
    return plain;
}

} // namespace

std::size_t GetRowBytes(const OrvPdf::FilterStage& stage)
{
    return static_cast<std::size_t>((stage.columns * stage.colors * stage.bitsPerComponent + 7) / 8);
}

PlainData DecodeHexadecimal(std::string_view encoded)
{
    PlainData plain;
    int high = -1;
    for (const char byte : encoded) {
        if (byte == '>')
            break;
        const int digit = HexValue(byte);
        if (digit < 0) {
            plain.isSound = plain.isSound && IsBlank(byte);
        } else if (high < 0) {
            high = digit;
        } else {
            plain.bytes += static_cast<char>(high << 4 | digit);
            high = -1;
        }
    }
    if (high >= 0)
        plain.bytes += static_cast<char>(high << 4);
    return plain;
}

PlainData DecodeBase85(std::string_view encoded)
{
    PlainData plain;
    std::string digits;
    std::size_t place = 0;
    for (; place < encoded.size() && encoded[place] != '~'; ++place) {
        const char byte = encoded[place];
        if (IsBlank(byte))
            continue;
        if (byte == 'z' && digits.empty()) {
            plain.bytes.append(4, '\0');
            continue;
        }
        if (byte < '!' || byte > 'u') {
            plain.isSound = false;
            return plain;
        }
        digits += byte;
        if (digits.size() == 5) {
            plain.isSound = AppendGroup(plain.bytes, digits) && plain.isSound;
            digits.clear();
        }
    }
    if (!digits.empty())
        plain.isSound = AppendGroup(plain.bytes, digits) && plain.isSound;
    plain.isSound = plain.isSound && encoded.substr(place, 2) == "~>";
    return plain;
}

PlainData DecodeRunLengths(std::string_view encoded)
{
    PlainData plain;
    std::size_t place = 0;
    while (place < encoded.size() && ByteAt(encoded, place) != 128) {
        const std::size_t length = ByteAt(encoded, place++);
        if (length < 128) {
            const std::string_view copied = encoded.substr(std::min(place, encoded.size()), length + 1);
            plain.bytes += copied;
            plain.isSound = plain.isSound && copied.size() == length + 1;
            place += length + 1;
        } else if (place < encoded.size()) {
            plain.bytes.append(257 - length, encoded[place++]);
        } else {
            plain.isSound = false;
        }
    }
    return plain;
}

PlainData DecodeLzw(std::string_view encoded, bool changesEarly)
{
    PlainData plain;
    std::vector<std::string> table;
    std::string last;
    std::size_t place = 0;
    for (;;) {
        const unsigned bits = CodeBits(table.size() + (last.empty() ? 0 : 1), changesEarly);
        // A last code may be missing.
        if (place + bits > encoded.size() * 8)
            return plain;
        const std::uint32_t code = GetBits(encoded, place, bits);
        place += bits;
        if (code == endCode)
            return plain;
        if (code == clearCode) {
            table.clear();
            last.clear();
            continue;
        }
        std::string now;
        const std::size_t index = code - firstFreeCode;
        if (code < clearCode)
            now = static_cast<char>(code);
        else if (index < table.size())
            now = table[index];
        else if (index == table.size() && !last.empty())
            now = last + last[0];
        if (now.empty() || firstFreeCode + table.size() >= codeCount) {
            plain.isSound = false;
            return plain;
        }
        if (!last.empty())
            table.push_back(last + now[0]);
        plain.bytes += now;
        last = now;
    }
}

PlainData UndoPredictor(std::string_view bytes, const OrvPdf::FilterStage& stage)
{
    if (stage.predictor <= 1)
        return {std::string(bytes), true};
    if (IsPng(stage))
        return UndoPng(bytes, stage);
    PlainData plain;
    const std::size_t rowBytes = GetRowBytes(stage);
    plain.isSound = bytes.size() % rowBytes == 0;
    for (std::size_t begin = 0; begin + rowBytes <= bytes.size(); begin += rowBytes)
        plain.bytes += AddPixels(bytes.substr(begin, rowBytes), stage, true);
    return plain;
}

std::string EncodeHexadecimal(std::string_view plain)
{
    constexpr std::string_view digits = "0123456789abcDEF";
    std::string encoded;
    for (std::size_t place = 0; place < plain.size(); ++place) {
        encoded += digits[ByteAt(plain, place) >> 4];
        encoded += digits[ByteAt(plain, place) & 15];
        if (place % 32 == 31)
            encoded += '\n';
    }
    return encoded + '>';
}

std::string EncodeBase85(std::string_view plain)
{
    std::string encoded;
    for (std::size_t begin = 0; begin < plain.size(); begin += 4) {
        const std::size_t count = std::min<std::size_t>(4, plain.size() - begin);
        std::uint32_t value = 0;
        for (std::size_t place = 0; place < 4; ++place)
            value = value << 8 | (place < count ? ByteAt(plain, begin + place) : 0);
        if (value == 0 && count == 4) {
            encoded += 'z';
            continue;
        }
        std::array<char, 5> digits;
        for (std::size_t place = digits.size(); place-- > 0; value /= 85)
            digits[place] = static_cast<char>('!' + value % 85);
        encoded.append(digits.data(), count + 1);
    }
    return encoded + "~>";
}

std::string EncodeRunLengths(std::string_view plain)
{
    std::string encoded;
    for (std::size_t begin = 0; begin < plain.size();) {
        std::size_t equal = 1;
        while (equal < 128 && begin + equal < plain.size() && plain[begin + equal] == plain[begin])
            ++equal;
        if (equal > 1) {
            encoded += static_cast<char>(257 - equal);
            encoded += plain[begin];
            begin += equal;
            continue;
        }
        std::size_t count = 1;
        while (count < 128 && begin + count < plain.size() &&
               plain[begin + count] != plain[begin + count - 1])
            ++count;
        encoded += static_cast<char>(count - 1);
        encoded += plain.substr(begin, count);
        begin += count;
    }
    return encoded + '\x80';
}

std::string EncodeLzw(std::string_view plain, bool changesEarly, std::size_t clearInterval)
{
    // The code of a sequence is known by that of all its bytes but the last, and this.
    std::map<std::pair<std::uint32_t, char>, std::uint32_t> table;
    BitWriter writer;
    std::size_t codes = 0; // Since the table was cleared.
    writer.Add(clearCode, 9);
    for (std::size_t place = 0; place < plain.size();) {
        std::uint32_t code = ByteAt(plain, place++);
        while (place < plain.size()) {
            const auto known = table.find({code, plain[place]});
            if (known == table.end())
                break;
            code = known->second;
            ++place;
        }
        writer.Add(code, CodeBits(codes, changesEarly));
        ++codes;
        if (place < plain.size())
            table.emplace(std::make_pair(code, plain[place]), firstFreeCode + table.size());
        if (codes >= clearInterval || firstFreeCode + codes >= codeCount - 1) {
            writer.Add(clearCode, CodeBits(codes, changesEarly));
            table.clear();
            codes = 0;
        }
    }
    writer.Add(endCode, CodeBits(codes, changesEarly));
    return writer.bytes;
}

std::string EncodeFlate(std::string_view plain)
{
    uLongf size = compressBound(static_cast<uLong>(plain.size()));
    std::string encoded(size, '\0');
    compress2(reinterpret_cast<Bytef*>(encoded.data()), &size, reinterpret_cast<const Bytef*>(plain.data()),
              static_cast<uLong>(plain.size()), 1);
    encoded.resize(size);
    return encoded;
}

std::string ApplyPredictor(std::string_view plain, const OrvPdf::FilterStage& stage)
{
    if (stage.predictor <= 1)
        return std::string(plain);
    const std::size_t rowBytes = GetRowBytes(stage);
    std::string above(rowBytes, '\0');
    std::string encoded;
    int kind = 0;
    for (std::size_t begin = 0; begin < plain.size(); begin += rowBytes) {
        std::string row(plain.substr(begin, rowBytes));
        row.resize(rowBytes, '\0');
        if (!IsPng(stage)) {
            encoded += AddPixels(row, stage, false);
            continue;
        }
        encoded += static_cast<char>(kind);
        for (std::size_t place = 0; place < rowBytes; ++place)
            encoded += static_cast<char>(row[place] - Predict(kind, row, above, place, GetPixelBytes(stage)));
        above = row;
        kind = (kind + 1) % 5;
    }
    return encoded;
}

} // namespace HarrowSupport::Fuzzing
