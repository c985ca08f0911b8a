#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pdf/decoded_bytes.h"

namespace OrvPdf
{

/// What a decoder made of its input.
struct DecodingResult
{
    DecodedBytes bytes;
    /// What was wrong with the input; empty if nothing was. The bytes are then what came out nonetheless.
    std::string problem;
    /// The output would have gone beyond the limit, and was cut off there.
    bool reachedLimit = false;
};

/// Inflates data of the zlib format (ISO 32000-1, 7.4.4), at most `byteLimit` bytes of it. Memory is taken
/// for no more than that, nor for more than the input can hold. What follows the end of the data is not
/// looked at. `expectedBytes` is how many are likely to come; 0 if nobody knows.
DecodingResult Inflate(std::string_view encoded, std::uint64_t byteLimit, std::uint64_t expectedBytes = 0);

} // namespace OrvPdf
