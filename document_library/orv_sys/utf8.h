#pragma once

#include <cstddef>
#include <string_view>

namespace OrvSys
{
namespace Detail
{

/// One character of UTF-8 text (Unicode, table 3-7).
struct UTF8Character
{
    char32_t value = 0;
    /// Bytes that the character takes; 0 if the bytes at this place are no character.
    std::size_t length = 0;
};

/// The character at the start of @p text. Overlong forms, surrogates, values beyond U+10FFFF and cut-off
/// sequences are no characters, nor is the start of an empty text.
UTF8Character ReadUTF8Character(std::string_view text);

} // namespace Detail
} // namespace OrvSys
