#include "orv_doc/packed_characters.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace OrvDoc::Detail
{

namespace
{

bool CanBePacked(const TextCharacter& character, std::uint32_t codeBytes)
{
    constexpr std::uint32_t largest = std::numeric_limits<std::uint16_t>::max();
    return character.source == 0 && character.flags == 0 && character.character.codeBytes == codeBytes &&
           character.character.code <= largest && character.character.glyph <= largest;
}

} // namespace

PackedCharacters::PackedCharacters(std::vector<TextCharacter> characters)
{
    if (characters.empty())
        return;
    codeBytes = characters.front().character.codeBytes;
    if (!std::all_of(characters.begin(), characters.end(),
                     [this](const TextCharacter& each) { return CanBePacked(each, codeBytes); })) {
        whole = std::move(characters);
        return;
    }
    pairs.reserve(characters.size());
    for (const TextCharacter& each : characters)
        pairs.push_back({static_cast<std::uint16_t>(each.character.code),
                         static_cast<std::uint16_t>(each.character.glyph)});
}

TextCharacter PackedCharacters::Get(std::size_t index) const
{
    if (!whole.empty())
        return whole[index];
    TextCharacter character;
    character.character.code = pairs[index].code;
    character.character.glyph = pairs[index].glyph;
    character.character.codeBytes = codeBytes;
    return character;
}

} // namespace OrvDoc::Detail
