#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include <orv_font/character.h>
#include <orv_font/font.h>
#include <orv_sys/export.h>

namespace OrvFont::Detail
{

/// What knows the outlines, the measures and the codes of a font: a font program, or a font of a file with
/// its program. Lengths are in thousandths of the text's size. Safe to ask from several threads.
class ORV_EXPORT FontSource
{
public:
    virtual ~FontSource() = default;

    /// Null for a character without an outline. Asked once for each glyph.
    virtual std::shared_ptr<const Plexa::Compound> MakeOutline(const Character& character) const = 0;
    virtual double GetAdvance(const Character& character) const = 0;
    /// The character that shows a Unicode code point; false if there is none.
    virtual bool FindCharacter(char32_t codePoint, Character& character) const = 0;
    /// Appends the characters of a shown string (ISO 32000-1, 9.4.3). Each code gives one, whether something
    /// draws it or not. Here each has two bytes, the first one higher, and is the glyph's number.
    virtual void Decode(std::string_view bytes, std::vector<Character>& characters) const;
    /// Whether each character has the same outline and the same advance in both; false says nothing.
    virtual bool HasSameOutlines(const FontSource& other) const { return this == &other; }
};

} // namespace OrvFont::Detail
