#pragma once

#include <cstddef>
#include <cstdint>

namespace HarrowSupport::GenerateImage
{

/// Packs a sample into a row: from the highest bit of each byte down, 16 bits with the high byte first. Of
/// the value the low `bits` bits count, and the other samples of the row stay as they are. Writes nothing for
/// another depth than 1, 2, 4, 8 and 16.
void PutSample(std::uint8_t* row, std::size_t bits, std::size_t index, std::uint64_t value);

} // namespace HarrowSupport::GenerateImage
