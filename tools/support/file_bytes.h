#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace HarrowSupport::Testing
{

/// All bytes of a file; empty if it can't be read.
inline std::string FileBytes(const std::string& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace HarrowSupport::Testing
