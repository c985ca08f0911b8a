#pragma once

#include <cstdint>
#include <string_view>

#include "pdf/reader/file/flate_data.h"
#include "pdf/reader/file/stream_data.h"

namespace OrvPdf
{

/// Whether the filter turns bytes into bytes: hexadecimal, base 85, LZW, flate and run lengths, the last
/// three with or without a predictor.
bool CanDecode(const FilterStage& stage);

/// Applies one filter that can be decoded, and gives at most `byteLimit` bytes. Predictor parameters that ask
/// for unreasonable rows are refused before memory is taken for them. `expectedBytes` is how many are likely
/// to come; 0 if nobody knows.
DecodingResult ApplyFilter(const FilterStage& stage, std::string_view encoded, std::uint64_t byteLimit,
                           std::uint64_t expectedBytes = 0);

} // namespace OrvPdf
