#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/fonts/drawing_program.h"
#include "pdf/fonts/file_font.h"
#include "pdf/fonts/lazy_to_unicode.h"
#include "pdf/fonts/lazy_value.h"
#include "pdf/fonts/simple_glyphs.h"
#include "pdf/fonts/simple_widths.h"

namespace OrvPdf
{

/// A Type 1, MMType1 or TrueType font of a file (ISO 32000-1, 9.6): codes of one byte.
class SimpleFont : public FileFont
{
public:
    struct Parts
    {
        std::shared_ptr<const FontOrigin> origin;
        std::unique_ptr<const DrawingProgram> program;
        SimpleGlyphRules rules;
        SimpleWidths widths;
        /// Null without `ToUnicode`.
        std::unique_ptr<const FontStream> toUnicode;
    };

    explicit SimpleFont(Parts givenParts);
    ~SimpleFont() override;

    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override;
    std::shared_ptr<const Plexa::Compound> MakeOutline(const OrvFont::Character& character) const override;
    /// Opens the program if the dictionary has no widths.
    double GetAdvance(const OrvFont::Character& character) const override;
    bool FindCharacter(char32_t codePoint, OrvFont::Character& character) const override;
    std::u16string GetText(const OrvFont::Character& character) const override;

protected:
    bool DrawsLike(const FileFont& other) const override;

private:
    std::uint32_t FindGlyph(std::uint8_t code) const;

    Parts parts;
    LazyToUnicode toUnicode;
    /// Those of the program.
    LazyValue<std::array<double, 256>> programAdvances;
    LazyValue<std::map<char32_t, std::uint8_t>> codes;
};

} // namespace OrvPdf
