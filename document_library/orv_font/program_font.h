#pragma once

#include <memory>

#include "orv_font/font_program.h"
#include "orv_font/font_source.h"

namespace OrvFont::Detail
{

/// A font that is a font program and nothing else: the codes of its characters are its glyphs, as in a Type 0
/// font with `Identity-H` or `Identity-V` and retained glyphs (ISO 32000-1, 9.7.5.2).
///
/// Written vertically, the origin stands over the middle of the glyph, 880 above the base line, which is what
/// a CIDFont has that says nothing (ISO 32000-1, 9.7.4.3).
class ProgramFont : public FontSource
{
public:
    /// Upwards from the origin of horizontal writing to that of vertical writing.
    static constexpr double verticalOrigin = 880.0;

    ProgramFont(std::shared_ptr<const FontProgram> givenProgram, WritingMode givenMode);

    const std::shared_ptr<const FontProgram>& GetProgram() const { return program; }

    std::shared_ptr<const Plexa::Compound> MakeOutline(const Character& character) const override;
    double GetAdvance(const Character& character) const override;
    bool FindCharacter(char32_t codePoint, Character& character) const override;
    bool HasSameOutlines(const FontSource& other) const override;

private:
    std::shared_ptr<const FontProgram> program;
    WritingMode mode;
};

/// The font of a program, with the names and the box that it states.
std::shared_ptr<const Font> MakeProgramFont(std::shared_ptr<const FontProgram> program, WritingMode mode);

} // namespace OrvFont::Detail
