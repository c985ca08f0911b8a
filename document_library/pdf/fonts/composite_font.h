#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/fonts/cid_widths.h"
#include "pdf/fonts/cmap.h"
#include "pdf/fonts/drawing_program.h"
#include "pdf/fonts/file_font.h"
#include "pdf/fonts/lazy_to_unicode.h"
#include "pdf/fonts/lazy_value.h"

namespace OrvPdf
{

/// A Type 0 font of a file with its CIDFont (ISO 32000-1, 9.7): codes of any length, which select CIDs.
class CompositeFont : public FileFont
{
public:
    struct Parts
    {
        std::shared_ptr<const FontOrigin> origin;
        std::unique_ptr<const DrawingProgram> program;
        /// Never null.
        std::shared_ptr<const CMap> encoding;
        /// Which need not be that of the CMap: the dictionary around it may have another.
        OrvFont::WritingMode mode = OrvFont::WritingMode::Horizontal;
        /// Of the character collection, such as `Japan1`.
        std::string ordering;
        CidWidths widths{{1000.0}};
        /// Of the CIDs that `W2` names.
        CidVerticalMetrics verticalMetrics{{}};
        /// Of all others: the advance and the height of the vertical origin.
        double verticalAdvance = -1000.0;
        double verticalOrigin = 880.0;
        /// Two bytes for each CID; null where CIDs are glyph ids.
        std::unique_ptr<const FontStream> glyphIds;
        /// Null without `ToUnicode`.
        std::unique_ptr<const FontStream> toUnicode;
    };

    explicit CompositeFont(Parts givenParts);
    ~CompositeFont() override;

    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override;
    /// Its origin is that of the font's writing mode.
    std::shared_ptr<const Plexa::Compound> MakeOutline(const OrvFont::Character& character) const override;
    double GetAdvance(const OrvFont::Character& character) const override;
    /// Among the codes of one and two bytes. They are gone through the first time.
    bool FindCharacter(char32_t codePoint, OrvFont::Character& character) const override;
    std::u16string GetText(const OrvFont::Character& character) const override;

protected:
    bool DrawsLike(const FileFont& other) const override;

private:
    using Characters = std::map<char32_t, OrvFont::Character>;

    std::uint32_t FindGlyph(const OrvFont::Character& character) const;
    const std::string& GetGlyphIds() const;
    CidVerticalMetrics::Numbers GetVerticalMetrics(std::uint32_t cid) const;
    Characters CollectCharacters() const;

    Parts parts;
    /// Two bytes a code, which is the CID.
    bool isIdentity;
    LazyToUnicode toUnicode;
    LazyValue<std::string> glyphIds;
    LazyValue<Characters> characters;
};

} // namespace OrvPdf
