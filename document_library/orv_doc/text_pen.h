#pragma once

#include <cstddef>

#include <orv_doc/shown_text.h>
#include <orv_font/font.h>
#include <plexa/coordinate_systems.h>
#include <plexa/point.h>
#include <plexa/transformation.h>

namespace OrvDoc::Detail
{

/// What places the characters of a text beside the steps between them. Points.
struct TextSpacing
{
    double size = 0.0;
    double character = 0.0;
    double word = 0.0;
};

/// Walks along a shown text and tells where each character stands (ISO 32000-1, 9.4.4).
class TextPen
{
public:
    using Place = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;

    TextPen(const ShownText& givenText, const TextSpacing& givenSpacing, bool isWrittenVertically)
        : text(givenText), spacing(givenSpacing), isVertical(isWrittenVertically)
    {}

    /// Takes the steps in front of the character whose code begins at that byte.
    void TakeStepsBefore(std::size_t position);
    /// From the character at its size to the text.
    Place GetPlace() const;
    /// Goes behind the character.
    void Advance(const OrvFont::Font& font, const OrvFont::Character& character);

    /// Where the pen is, from the start of the line and in its axes.
    double GetX() const { return x; }
    double GetY() const { return y; }

private:
    void BeginLine(double originX, double originY);
    void Take(ShownText::Kind kind, const double* values);

    const ShownText& text;
    TextSpacing spacing;
    bool isVertical;
    std::size_t nextStep = 0;
    std::size_t nextValue = 0;
    double scale = 1.0;
    double rise = 0.0;
    /// From the line to the text.
    Place line;
    double x = 0.0;
    double y = 0.0;
};

} // namespace OrvDoc::Detail
