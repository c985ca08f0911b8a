#pragma once

#include <cstdint>
#include <string>

namespace Examples
{

/// A number of things in words: `1 file`, `0 files`. The noun takes an "s" for its plural.
std::string Count(std::uint64_t count, const std::string& noun);

} // namespace Examples
