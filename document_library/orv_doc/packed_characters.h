#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <orv_doc/text_character.h>

namespace OrvDoc::Detail
{

/// The characters of a text: four bytes for each where code and glyph have 16 bits, all codes take equally
/// many bytes, and nothing else is set, as in nearly all texts; the characters as they are otherwise.
/// Immutable, so that clones share them.
class PackedCharacters
{
public:
    explicit PackedCharacters(std::vector<TextCharacter> characters);

    std::size_t GetCount() const { return whole.empty() ? pairs.size() : whole.size(); }
    TextCharacter Get(std::size_t index) const;
    /// All of them if they are kept as they are, null otherwise.
    const std::vector<TextCharacter>* GetWhole() const { return whole.empty() ? nullptr : &whole; }

private:
    struct Pair
    {
        std::uint16_t code;
        std::uint16_t glyph;
    };

    std::vector<Pair> pairs;
    /// Of every pair.
    std::uint32_t codeBytes = 0;
    std::vector<TextCharacter> whole;
};

} // namespace OrvDoc::Detail
