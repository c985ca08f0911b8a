#include "orv_font/program_font.h"

#include <utility>

#include <plexa/compound.h>

namespace OrvFont::Detail
{

ProgramFont::ProgramFont(std::shared_ptr<const FontProgram> givenProgram, WritingMode givenMode)
    : program(std::move(givenProgram)), mode(givenMode)
{}

std::shared_ptr<const Plexa::Compound> ProgramFont::MakeOutline(const Character& character) const
{
    Font::Point origin;
    if (mode == WritingMode::Vertical)
        origin = Font::Point(program->GetAdvance(character.glyph) / 2.0, verticalOrigin);
    return program->MakeOutline(character.glyph, origin);
}

double ProgramFont::GetAdvance(const Character& character) const
{
    return mode == WritingMode::Vertical ? program->GetVerticalAdvance(character.glyph)
                                         : program->GetAdvance(character.glyph);
}

bool ProgramFont::FindCharacter(char32_t codePoint, Character& character) const
{
    const std::uint32_t glyph = program->FindGlyphByCodePoint(codePoint);
    if (glyph == 0)
        return false;
    character = Character();
    character.code = glyph;
    character.glyph = glyph;
    return true;
}

bool ProgramFont::HasSameOutlines(const FontSource& other) const
{
    if (this == &other)
        return true;
    const auto* otherFont = dynamic_cast<const ProgramFont*>(&other);
    return otherFont && mode == otherFont->mode && program->IsSameAs(*otherFont->program);
}

std::shared_ptr<const Font> MakeProgramFont(std::shared_ptr<const FontProgram> program, WritingMode mode)
{
    const Font::Names names = program->GetNames();
    const Font::Rectangle box = program->GetBox();
    return std::make_shared<const Font>(names, box, mode,
                                        std::make_unique<const ProgramFont>(std::move(program), mode));
}

} // namespace OrvFont::Detail
