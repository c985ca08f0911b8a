#pragma once

#include <cstdint>
#include <iosfwd>
#include <vector>

#include <orv_font/character.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

/// One character of a text object.
struct ORV_EXPORT TextCharacter
{
    OrvFont::Character character;
    /// Bytes of the file's string that the character was read from; 0 for a character that a program made.
    std::uint64_t source = 0;
    /// Bits of the library; 0 for a character that a program made.
    std::uint32_t flags = 0;

    bool operator==(const TextCharacter& other) const
    {
        return character == other.character && source == other.source && flags == other.flags;
    }
    bool operator!=(const TextCharacter& other) const { return !(*this == other); }
};

/// Code and glyph of each character, such as `[65:36, 66:37]`, with source and flags where they are not 0.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const std::vector<TextCharacter>& characters);

} // namespace OrvDoc
