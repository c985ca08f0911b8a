#include "pdf/reader/content/pen_behind.h"

#include "orv_font/font_source.h"

namespace OrvPdf
{

OrvDoc::Detail::TextPen GetPenBehind(const OrvDoc::Text& text)
{
    const OrvDoc::ShownText& shown = *text.GetShownText();
    const OrvFont::Font& font = *text.GetFont();
    const OrvDoc::Detail::TextSpacing spacing{text.GetSize(), text.GetCharSpacing().value,
                                              text.GetWordSpacing().value};
    OrvDoc::Detail::TextPen pen(shown, spacing, font.GetWritingMode() == OrvFont::WritingMode::Vertical);
    std::vector<OrvFont::Character> characters;
    font.GetSource().Decode(shown.GetCodes(), characters);
    std::size_t position = 0;
    for (const OrvFont::Character& character : characters) {
        pen.TakeStepsBefore(position);
        pen.Advance(font, character);
        position += character.codeBytes;
    }
    pen.TakeStepsBefore(shown.GetCodes().size());
    return pen;
}

} // namespace OrvPdf
