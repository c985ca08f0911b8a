#include "pdf/reader/file/run_length_data.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace OrvPdf
{

namespace
{

constexpr std::size_t endMark = 128;
constexpr std::size_t largestRun = 128;

/// False if not all of it fits.
bool Append(DecodingResult& result, std::string_view bytes, std::uint64_t byteLimit)
{
    const std::uint64_t left = byteLimit - result.bytes.GetSize();
    result.reachedLimit = bytes.size() > left;
    result.bytes.Append(
        bytes.substr(0, static_cast<std::size_t>(std::min<std::uint64_t>(left, bytes.size()))));
    return !result.reachedLimit;
}

} // namespace

DecodingResult DecodeRunLengths(std::string_view encoded, std::uint64_t byteLimit)
{
    DecodingResult result;
    std::array<char, largestRun> run{};
    std::size_t place = 0;
    while (place < encoded.size()) {
        const std::size_t length = static_cast<unsigned char>(encoded[place++]);
        if (length == endMark)
            break;
        const bool isCopied = length < endMark;
        const std::size_t wanted = isCopied ? length + 1 : 1;
        const std::string_view given = encoded.substr(place, wanted);
        place += given.size();
        std::string_view made = given;
        if (!isCopied && !given.empty()) {
            const std::size_t count = 2 * endMark + 1 - length;
            std::fill_n(run.begin(), count, given[0]);
            made = {run.data(), count};
        }
        if (!Append(result, made, byteLimit))
            break;
        if (given.size() < wanted)
            result.problem = "the run length data ends early";
    }
    return result;
}

} // namespace OrvPdf
