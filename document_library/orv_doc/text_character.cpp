#include <orv_doc/text_character.h>

#include <ostream>
#include <string>

namespace OrvDoc
{

std::ostream& operator<<(std::ostream& stream, const std::vector<TextCharacter>& characters)
{
    std::string text = "[";
    const char* separator = "";
    for (const TextCharacter& character : characters) {
        text += separator + std::to_string(character.character.code) + ":" +
                std::to_string(character.character.glyph);
        if (character.source != 0)
            text += " source " + std::to_string(character.source);
        if (character.flags != 0)
            text += " flags " + std::to_string(character.flags);
        separator = ", ";
    }
    return stream << text + "]";
}

} // namespace OrvDoc
