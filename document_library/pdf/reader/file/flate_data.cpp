#include "pdf/reader/file/flate_data.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <new>

#include <libdeflate.h>
#include <zlib.h>

namespace OrvPdf
{

namespace
{

// No deflate data becomes more than 1032 times as long: 258 bytes from two bits.
constexpr std::uint64_t LargestRatio = 1032;
constexpr std::uint64_t TypicalRatio = 4;
constexpr std::uint64_t SmallestBuffer = 4096;
constexpr std::uint64_t GrowthFactor = 3;

struct DecompressorDeleter
{
    void operator()(libdeflate_decompressor* decompressor) const
    {
        libdeflate_free_decompressor(decompressor);
    }
};

std::uint64_t LargestSize(std::string_view encoded, std::uint64_t byteLimit)
{
    const std::uint64_t size = encoded.size();
    const std::uint64_t possible = size > std::numeric_limits<std::uint64_t>::max() / LargestRatio
                                       ? std::numeric_limits<std::uint64_t>::max()
                                       : size * LargestRatio;
    return std::min(possible, byteLimit);
}

// True if the data is whole and fits.
bool InflateAtOnce(std::string_view encoded, std::uint64_t largest, std::uint64_t expected,
                   DecodedBytes& bytes)
{
    const std::unique_ptr<libdeflate_decompressor, DecompressorDeleter> decompressor(
        libdeflate_alloc_decompressor());
    if (!decompressor)
        throw std::bad_alloc();
    const std::uint64_t first =
        expected > 0 ? expected : std::max(SmallestBuffer, encoded.size() * TypicalRatio);
    std::uint64_t capacity = std::min(largest, first);
    for (;;) {
        bytes = DecodedBytes();
        bytes = DecodedBytes(static_cast<std::size_t>(capacity));
        std::size_t written = 0;
        const libdeflate_result result =
            libdeflate_zlib_decompress(decompressor.get(), encoded.data(), encoded.size(), bytes.GetData(),
                                       bytes.GetCapacity(), &written);
        if (result == LIBDEFLATE_SUCCESS) {
            bytes.SetSize(written);
            return true;
        }
        if (result != LIBDEFLATE_INSUFFICIENT_SPACE || capacity == largest)
            return false;
        capacity = std::min(largest, capacity * GrowthFactor);
    }
}

// Byte by byte as far as the data goes: for damaged data, and for what has to be cut off.
void InflateAsFarAsPossible(std::string_view encoded, std::uint64_t largest, DecodingResult& result)
{
    constexpr std::uint64_t largestStep = std::uint64_t{1} << 30;
    z_stream stream = {};
    if (inflateInit(&stream) != Z_OK)
        throw std::bad_alloc();
    const std::unique_ptr<z_stream, int (*)(z_stream*)> owner(&stream, inflateEnd);

    std::size_t consumed = 0;
    std::size_t written = 0;
    DecodedBytes& bytes = result.bytes;
    int state = Z_OK;
    while (state == Z_OK) {
        if (written == bytes.GetCapacity()) {
            if (written == largest) {
                result.reachedLimit = true;
                break;
            }
            bytes.SetSize(written);
            bytes.Reserve(static_cast<std::size_t>(
                std::min(largest, std::max<std::uint64_t>(SmallestBuffer, written * GrowthFactor))));
        }
        const std::size_t inputStep = std::min<std::uint64_t>(encoded.size() - consumed, largestStep);
        const std::size_t outputStep = std::min<std::uint64_t>(bytes.GetCapacity() - written, largestStep);
        stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(encoded.data() + consumed));
        stream.avail_in = static_cast<uInt>(inputStep);
        stream.next_out = reinterpret_cast<Bytef*>(bytes.GetData() + written);
        stream.avail_out = static_cast<uInt>(outputStep);
        state = inflate(&stream, Z_NO_FLUSH);
        consumed += inputStep - stream.avail_in;
        written += outputStep - stream.avail_out;
    }
    bytes.SetSize(written);
    if (result.reachedLimit || state == Z_STREAM_END)
        return;
    if (state == Z_BUF_ERROR)
        result.problem = "the flate data ends early";
    else if (state == Z_MEM_ERROR)
        throw std::bad_alloc();
    else
        result.problem =
            std::string("the flate data is damaged: ") + (stream.msg ? stream.msg : "unknown reason");
}

} // namespace

DecodingResult Inflate(std::string_view encoded, std::uint64_t byteLimit, std::uint64_t expectedBytes)
{
    DecodingResult result;
    if (encoded.empty()) {
        result.problem = "the flate data is empty";
        return result;
    }
    const std::uint64_t largest = LargestSize(encoded, byteLimit);
    if (!InflateAtOnce(encoded, largest, expectedBytes, result.bytes)) {
        result.bytes.SetSize(0);
        InflateAsFarAsPossible(encoded, largest, result);
    }
    return result;
}

} // namespace OrvPdf
