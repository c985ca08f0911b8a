#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace HarrowSupport::Fuzzing
{

/// The bytes of a PDF file of the random document of that seed, with every stream as it is without filters
/// and every object by itself, so that a change of a byte is a change of what it says.
std::string MakeRandomFile(std::uint32_t seed);

/// The content streams of such a file's pages.
std::vector<std::string> ContentStreamsOf(const std::string& file);

} // namespace HarrowSupport::Fuzzing
