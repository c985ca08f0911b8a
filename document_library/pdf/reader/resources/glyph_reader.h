#pragma once

#include <memory>

#include "pdf/reader/resources/form_reader.h"

namespace OrvPdf
{

class Type3Font;

/// A glyph of a Type 3 font of a file (ISO 32000-1, 9.6.5): a form whose matrix is that of the font. Its
/// content is read when somebody shows it.
class PdfGlyph : public PdfForm
{
public:
    /// `givenFont` is one whose source is `type3`. Needs an access to the file.
    PdfGlyph(DocumentResources& givenDocument, QPDFObjectHandle procedure, QPDFObjectHandle around,
             std::shared_ptr<const OrvFont::Font> givenFont, const Type3Font& type3,
             const OrvFont::Character& givenCharacter);

private:
    std::unique_ptr<NestedSource> MakeSource(const NestedStream::Reading& reading,
                                             const GraphicsState& state) const override;
    void SetPlace(OrvPaint::FormPaint::Factory& factory, const NestedStream::Reading& reading,
                  std::vector<std::string>& problems) override;

    std::shared_ptr<const OrvFont::Font> font;
    Matrix matrix;
    OrvFont::Character character;
};

} // namespace OrvPdf
