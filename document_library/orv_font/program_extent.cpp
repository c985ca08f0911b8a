#include "orv_font/program_extent.h"

#include <algorithm>
#include <cstddef>

namespace OrvFont::Detail
{

namespace
{

constexpr std::size_t headerSize = 12;
constexpr std::size_t recordSize = 16;

std::size_t NumberAt(std::string_view bytes, std::size_t offset, std::size_t size)
{
    std::size_t number = 0;
    for (const char byte : bytes.substr(offset, size))
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

std::string_view UnwrapCompactProgram(std::string_view file)
{
    std::string_view program = file;
    const std::size_t wanted = NumberAt(file, 4, 2);
    const std::size_t count = std::min(wanted, (file.size() - headerSize) / recordSize);
    for (std::size_t index = 0; index < count; ++index) {
        const std::string_view record = file.substr(headerSize + recordSize * index, recordSize);
        const std::string_view tag = record.substr(0, 4);
        if (tag == "head")
            return file;
        const std::size_t offset = NumberAt(record, 8, 4);
        if (tag == "CFF " && offset < file.size())
            program = file.substr(offset, NumberAt(record, 12, 4));
    }
    return program;
}

} // namespace

std::string_view FindProgramExtent(std::string_view bytes)
{
    // No program of another kind than Type 1 begins with these bytes.
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n\f"), bytes.size()));
    const bool isOpenType = bytes.size() >= headerSize && bytes.substr(0, 4) == "OTTO";
    return isOpenType ? UnwrapCompactProgram(bytes) : bytes;
}

} // namespace OrvFont::Detail
