#pragma once

#include <cstdint>
#include <string_view>

#include "pdf/reader/file/flate_data.h"

namespace OrvPdf
{

/// Undoes run lengths (ISO 32000-1, 7.4.5), at most `byteLimit` bytes of them. What follows the mark for the
/// end of the data is not looked at; the mark itself may be missing.
DecodingResult DecodeRunLengths(std::string_view encoded, std::uint64_t byteLimit);

} // namespace OrvPdf
