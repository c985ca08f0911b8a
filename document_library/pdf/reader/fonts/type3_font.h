#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include <qpdf/QPDFObjectHandle.hh>

#include "pdf/fonts/file_font.h"
#include "pdf/fonts/lazy_to_unicode.h"
#include "pdf/fonts/simple_encoding.h"
#include "pdf/fonts/simple_widths.h"
#include "pdf/reader/content/group_recipe.h"
#include "pdf/reader/fonts/font_parts.h"

namespace OrvPdf
{

/// A Type 3 font of a file (ISO 32000-1, 9.6.5), whose glyphs are contents. Its characters have empty
/// outlines: who shows them interprets the procedures.
class Type3Font : public FileFont
{
public:
    struct Parts
    {
        std::shared_ptr<const FontOrigin> origin;
        std::shared_ptr<const SourceFile> file;
        /// From the coordinates of glyphs to those of text of one point.
        Matrix matrix;
        SimpleEncoding encoding;
        /// In thousandths of the size.
        SimpleWidths widths;
        /// Null objects where they are missing.
        QPDFObjectHandle procedures;
        QPDFObjectHandle resources;
        std::unique_ptr<const FontStream> toUnicode;
    };

    explicit Type3Font(Parts givenParts);
    ~Type3Font() override;

    const Matrix& GetMatrix() const { return parts.matrix; }

    /// The content stream that draws the code; a null object if there is none. Needs an access to the file.
    QPDFObjectHandle GetGlyphProcedure(std::uint32_t code) const;
    /// What the procedures name; a null object if the font says nothing, as old ones do: that of the content
    /// that shows the text counts then.
    QPDFObjectHandle GetResources() const { return parts.resources; }

    void Decode(std::string_view bytes, std::vector<OrvFont::Character>& characters) const override;
    std::shared_ptr<const Plexa::Compound> MakeOutline(const OrvFont::Character& character) const override;
    double GetAdvance(const OrvFont::Character& character) const override;
    bool FindCharacter(char32_t codePoint, OrvFont::Character& character) const override;
    std::u16string GetText(const OrvFont::Character& character) const override;

protected:
    /// Never of two fonts: their glyphs are contents, which nothing here compares.
    bool DrawsLike(const FileFont& other) const override;

private:
    Parts parts;
    LazyToUnicode toUnicode;
};

/// Reads a Type 3 font. Needs an access to the file.
std::shared_ptr<const OrvFont::Font> ReadType3Font(const FontParts& parts, FontProblems& problems);

} // namespace OrvPdf
