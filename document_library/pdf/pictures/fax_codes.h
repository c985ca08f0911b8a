#pragma once

#include <cstddef>
#include <cstdint>

namespace OrvPdf
{

/// One code word for the length of a run (ITU-T T.4, tables 2 and 3).
struct FaxRunCode
{
    /// 64 and more of it: another code for the same run follows.
    std::uint16_t run = 0;
    /// Length of the code word; 0 if the bits begin no code word.
    std::uint8_t bits = 0;
};

/// The longest code word for a run.
inline constexpr std::size_t longestFaxCode = 13;

/// The code word that the 13 bits begin with.
const FaxRunCode& FindFaxRun(bool isBlack, std::uint32_t thirteenBits);

} // namespace OrvPdf
