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
};

inline bool operator==(const Character& left, const Character& right)
{
    return left.code == right.code && left.glyph == right.glyph;
}

inline bool operator!=(const Character& left, const Character& right)
{
    return !(left == right);
}

} // namespace OrvFont
