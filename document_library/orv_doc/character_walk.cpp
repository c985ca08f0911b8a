#include <orv_doc/character_walk.h>

#include <orv_doc/text.h>
#include <orv_font/font.h>
#include <plexa/geometry.h>

#include "orv_doc/packed_characters.h"
#include "orv_doc/packed_places.h"
#include "orv_doc/text_pen.h"
#include "orv_font/font_source.h"

namespace OrvDoc
{

namespace
{

constexpr double milliPointsInAPoint = 1000.0;

/// Brings an outline to its size and its place in the text.
CharacterWalk::Transformation AtSize(const CharacterWalk::Place& place, double size)
{
    return {size * place.a,
            size * place.b,
            size * place.c,
            size * place.d,
            place.x.value * milliPointsInAPoint,
            place.y.value * milliPointsInAPoint};
}

} // namespace

/// Of a text whose advances and spacings say where its characters are.
struct CharacterWalk::ShownWalk
{
    ShownWalk(const ShownText& text, const Detail::TextSpacing& spacing, bool isVertical)
        : pen(text, spacing, isVertical)
    {}

    /// Those of a text that was made of what operators show.
    std::vector<OrvFont::Character> characters;
    Detail::TextPen pen;
    /// Of the current character's code.
    std::size_t position = 0;
};

CharacterWalk::CharacterWalk(const Text& givenText, const Transformation& outer)
    : text(givenText), textToOuter(Plexa::Concatenate(text.GetTextTransformation(), outer)), count(0)
{
    if (!text.ownPlaces) {
        static const ShownText noSteps;
        const OrvFont::Font& font = *text.GetFont();
        shown = std::make_unique<ShownWalk>(
            text.shown ? *text.shown : noSteps,
            Detail::TextSpacing{text.GetSize(), text.GetCharSpacing().value, text.GetWordSpacing().value},
            font.GetWritingMode() == OrvFont::WritingMode::Vertical);
    }
    if (text.shown) {
        text.GetFont()->GetSource().Decode(text.shown->GetCodes(), shown->characters);
        shown->pen.TakeStepsBefore(0);
    }
    count = text.shown ? shown->characters.size() : text.characters->GetCount();
}

CharacterWalk::~CharacterWalk() = default;
CharacterWalk::CharacterWalk(CharacterWalk&&) noexcept = default;

void CharacterWalk::Next()
{
    if (shown) {
        const OrvFont::Character character = GetCharacter().character;
        shown->pen.Advance(*text.GetFont(), character);
        shown->position += character.codeBytes;
        shown->pen.TakeStepsBefore(shown->position);
    }
    ++index;
}

TextCharacter CharacterWalk::GetCharacter() const
{
    if (!text.shown)
        return text.characters->Get(index);
    TextCharacter character;
    character.character = shown->characters[index];
    return character;
}

CharacterWalk::Place CharacterWalk::GetPlace() const
{
    return shown ? shown->pen.GetPlace() : text.ownPlaces->Get(index);
}

std::shared_ptr<const Plexa::Compound> CharacterWalk::GetOutline() const
{
    return text.GetFont()->GetOutline(GetCharacter().character);
}

CharacterWalk::Transformation CharacterWalk::GetOutlineTransformation() const
{
    return Plexa::Concatenate(AtSize(GetPlace(), text.GetSize()), textToOuter);
}

std::shared_ptr<const Plexa::Compound> CharacterWalk::GetTransformedOutline() const
{
    std::shared_ptr<const Plexa::Compound> outline = GetOutline();
    const Transformation transformation = GetOutlineTransformation();
    const bool staysAsItIs = outline->GetSubpaths().empty() || Plexa::IsIdentity(transformation);
    return staysAsItIs ? outline : transformation * outline;
}

} // namespace OrvDoc
