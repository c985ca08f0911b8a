#include "orv_doc/text_pen.h"

namespace OrvDoc::Detail
{

namespace
{

constexpr double thousandths = 1000.0;

} // namespace

void TextPen::TakeStepsBefore(std::size_t position)
{
    const auto& steps = text.GetSteps();
    for (; nextStep < steps.size() && steps[nextStep].position <= position; ++nextStep) {
        Take(steps[nextStep].kind, text.GetValues().data() + nextValue);
        nextValue += ShownText::CountValues(steps[nextStep].kind);
    }
}

void TextPen::BeginLine(double originX, double originY)
{
    line.x.value = originX;
    line.y.value = originY;
    x = 0.0;
    y = 0.0;
}

void TextPen::Take(ShownText::Kind kind, const double* values)
{
    switch (kind) {
    case ShownText::Kind::Adjustment: {
        const double back = values[0] / thousandths * spacing.size;
        if (isVertical) {
            y -= back;
        } else {
            x -= back * scale;
        }
        return;
    }
    case ShownText::Kind::Move:
        BeginLine(line.a * values[0] + line.c * values[1] + line.x.value,
                  line.b * values[0] + line.d * values[1] + line.y.value);
        return;
    case ShownText::Kind::Line:
        BeginLine(values[0], values[1]);
        return;
    case ShownText::Kind::Turn:
        line.a = values[0];
        line.b = values[1];
        line.c = values[2];
        line.d = values[3];
        BeginLine(values[4], values[5]);
        return;
    case ShownText::Kind::Scale:
        scale = values[0];
        return;
    case ShownText::Kind::Rise:
        rise = values[0];
        return;
    }
}

TextPen::Place TextPen::GetPlace() const
{
    const double height = y + rise;
    return Place(scale * line.a, scale * line.b, line.c, line.d, line.a * x + line.c * height + line.x.value,
                 line.b * x + line.d * height + line.y.value);
}

void TextPen::Advance(const OrvFont::Font& font, const OrvFont::Character& character)
{
    const double spaces = spacing.character + (OrvFont::IsWordSpace(character) ? spacing.word : 0.0);
    const double advance = font.GetAdvance(character) / thousandths * spacing.size + spaces;
    if (isVertical) {
        y += advance;
    } else {
        x += advance * scale;
    }
}

} // namespace OrvDoc::Detail
