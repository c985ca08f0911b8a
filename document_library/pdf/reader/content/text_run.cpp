#include "pdf/reader/content/text_run.h"

#include <plexa/geometry.h>

namespace OrvPdf
{

TextRun::TextRun(const TextSetting& givenSetting, const TextMatrix& textMatrix, double offsetX,
                 double offsetY)
    : setting(givenSetting),
      matrix(textMatrix),
      ownMatrix(textMatrix),
      line(textMatrix),
      firstOffsetX(offsetX),
      firstOffsetY(offsetY)
{}

void TextRun::SplitMatrix(const TextMatrix& own, const TextMatrix& ofObject)
{
    if (Plexa::Concatenate(own, ofObject) == matrix) {
        ownMatrix = own;
        objectMatrix = ofObject;
    }
}

bool TextRun::Has(const TextSetting& other) const
{
    return setting.font == other.font && setting.size == other.size &&
           setting.characterSpacing == other.characterSpacing && setting.wordSpacing == other.wordSpacing &&
           setting.mode == other.mode;
}

void TextRun::Move(double x, double y)
{
    shown.AddMove(x - firstOffsetX, y - firstOffsetY);
    firstOffsetX = 0.0;
    firstOffsetY = 0.0;
}

bool TextRun::GoTo(const TextMatrix& newLine)
{
    const boost::optional<TextLine> place = FindTextLine(newLine, matrix);
    if (!place) {
        return false;
    }
    if (HaveSameAxes(newLine, line)) {
        shown.AddLine(place->x, place->y);
    } else {
        shown.AddTurn(place->a, place->b, place->c, place->d, place->x, place->y);
    }
    line = newLine;
    firstOffsetX = 0.0;
    firstOffsetY = 0.0;
    return true;
}

bool TextRun::GoTo(const TextMatrix& newLine, const TextLine& exact)
{
    if (GetLineMatrix(exact, matrix) != newLine) {
        return GoTo(newLine);
    }
    shown.AddTurn(exact.a, exact.b, exact.c, exact.d, exact.x, exact.y);
    line = newLine;
    firstOffsetX = 0.0;
    firstOffsetY = 0.0;
    return true;
}

void TextRun::Prepare(const TextSetting& now)
{
    if (now.scale != scale) {
        scale = now.scale;
        shown.AddScale(scale);
    }
    if (now.rise != rise) {
        rise = now.rise;
        shown.AddRise(rise);
    }
}

std::unique_ptr<OrvDoc::Text> TextRun::MakeText() const
{
    auto text = std::make_unique<OrvDoc::Text>(setting.font, setting.size, shown);
    const Matrix whole = Plexa::Concatenate(objectMatrix, transformation);
    if (!Plexa::IsIdentity(whole)) {
        text->SetTransformation(whole);
    }
    text->SetCharSpacing(setting.characterSpacing);
    text->SetWordSpacing(setting.wordSpacing);
    text->SetTextTransformation(ownMatrix);
    return text;
}

} // namespace OrvPdf
