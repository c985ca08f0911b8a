#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orv_font/font_source.h"
#include "pdf/fonts/font_origin.h"

namespace OrvPdf
{

/// A font of a file as its contents use it: which characters a shown string has, how far each advances, and
/// what draws it. The widths of the file rule, not those of the program (ISO 32000-1, 9.2.4).
///
/// Decoding and measuring leave the font program alone wherever the dictionary has widths: it is decoded and
/// opened when the first outline is asked for. `Character::glyph` is therefore no glyph id but what the code
/// selects: the code itself in a simple font, the CID in a composite one.
class FileFont : public OrvFont::Detail::FontSource
{
public:
    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override = 0;

    /// What a character stands for, in UTF-16: what `ToUnicode` says, else what its name or CID tells. Empty
    /// if nothing does.
    virtual std::u16string GetText(const OrvFont::Character& character) const = 0;

    /// Compares the dictionaries and the programs, once for each pair of fonts that follow one another.
    bool HasSameOutlines(const FontSource& other) const final;

    /// Where the font's dictionary stands.
    const FontOrigin& GetOrigin() const { return *origin; }

protected:
    explicit FileFont(std::shared_ptr<const FontOrigin> givenOrigin);

    /// Whether each character is drawn and measured alike in both.
    virtual bool DrawsLike(const FileFont& other) const = 0;

private:
    std::shared_ptr<const FontOrigin> origin;
    /// Never given twice in a process, unlike an address.
    std::uint64_t serial;
    /// Of the fonts that were last found to draw alike and not to; 0 for none.
    mutable std::atomic<std::uint64_t> lastSame{0};
    mutable std::atomic<std::uint64_t> lastOther{0};
};

/// The font of a file behind a font; null for the library's own.
const FileFont* GetFileFont(const OrvFont::Font& font);

} // namespace OrvPdf
