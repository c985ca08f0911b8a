#pragma once

#include <memory>
#include <string>

#include <orv_font/character.h>

#include "pdf/fonts/font_stream.h"
#include "pdf/fonts/lazy_value.h"
#include "pdf/fonts/to_unicode.h"

namespace OrvPdf
{

/// The `ToUnicode` map of a font, read when it is first needed.
class LazyToUnicode
{
public:
    /// The stream must live as long as this object. Null for a font without such a map.
    explicit LazyToUnicode(const FontStream* givenStream) : stream(givenStream) {}

    /// Empty if there is no map or it has no text for the character.
    std::u16string Find(const OrvFont::Character& character) const
    {
        if (!stream)
            return {};
        const auto& known = map.Get([this] {
            // Texts serve searches alone: what can be read of a damaged map is used without a word.
            std::string problem;
            return ToUnicodeMap::Parse(stream->Read(problem));
        });
        return known ? known->Find(character.code, character.codeBytes) : std::u16string();
    }

private:
    const FontStream* stream;
    LazyValue<std::shared_ptr<const ToUnicodeMap>> map;
};

} // namespace OrvPdf
