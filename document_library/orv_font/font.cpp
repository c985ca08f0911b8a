#include <orv_font/font.h>

#include <cmath>
#include <utility>

#include "orv_font/font_source.h"
#include "orv_font/outline_cache.h"

namespace OrvFont
{

namespace
{

bool IsLeading(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrailing(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

} // namespace

Font::Font(Names givenNames, const Rectangle& givenBox, WritingMode givenMode,
           std::unique_ptr<const Detail::FontSource> givenSource)
    : names(std::move(givenNames)),
      box(givenBox),
      mode(givenMode),
      source(std::move(givenSource)),
      outlines(std::make_unique<Detail::OutlineCache>())
{}

Font::~Font() = default;

bool Font::Uni16StringToFontCharacters(Uni16StringView text, std::vector<Character>& characters) const
{
    characters.clear();
    bool isWhole = true;
    for (std::size_t index = 0; index < text.size(); ++index) {
        char32_t codePoint = static_cast<char32_t>(text[index]);
        const bool isPair = IsLeading(codePoint) && index + 1 < text.size() &&
                            IsTrailing(static_cast<char32_t>(text[index + 1]));
        if (isPair)
            codePoint =
                0x10000 + ((codePoint - 0xD800) << 10) + (static_cast<char32_t>(text[++index]) - 0xDC00);
        Character character;
        if (!IsLeading(codePoint) && !IsTrailing(codePoint) && source->FindCharacter(codePoint, character))
            characters.push_back(character);
        else
            isWhole = false;
    }
    return isWhole;
}

std::shared_ptr<const Plexa::Compound> Font::GetOutline(const Character& character) const
{
    return outlines->Get(*source, character);
}

double Font::GetAdvance(const Character& character) const
{
    const double advance = source->GetAdvance(character);
    return std::fabs(advance) <= outlineReach ? advance : 0.0;
}

bool HaveSameOutlines(const Font& left, const Font& right)
{
    return &left == &right || left.GetSource().HasSameOutlines(right.GetSource());
}

} // namespace OrvFont
