#pragma once

#include <cstdint>

namespace OrvPdf
{

/// How many bytes may be decoded, and the limit of `ReadOptions::Limits` that this comes from.
struct ByteLimit
{
    std::uint64_t bytes;
    const char* name;
    std::uint64_t value; // Of the limit: more than `bytes` if some of it is used up.
};

} // namespace OrvPdf
