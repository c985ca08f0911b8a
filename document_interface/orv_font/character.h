#pragma once

#include <cstdint>

namespace OrvFont
{

/// One character of a font: what a text stores for each of its characters. Opaque to those who only hand it
/// on.
struct Character
{
    /// The code of the character in the font's encoding.
    std::uint32_t code = 0;
    /// The glyph that the font draws for it.
    std::uint32_t glyph = 0;
    /// How many bytes the code takes in a string that is shown: fonts of files may mix lengths, and 20 is
    /// then another code than 0020 (ISO 32000-1, 9.7.6.2).
    std::uint32_t codeBytes = 2;
};

inline bool operator==(const Character& left, const Character& right)
{
    return left.code == right.code && left.glyph == right.glyph && left.codeBytes == right.codeBytes;
}

inline bool operator!=(const Character& left, const Character& right)
{
    return !(left == right);
}

/// Whether spacing of words applies to the character: to the code 32 of one byte (ISO 32000-1, 9.3.3).
inline bool IsWordSpace(const Character& character)
{
    return character.code == 32 && character.codeBytes == 1;
}

} // namespace OrvFont
