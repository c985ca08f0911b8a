#include <plexa/geometry.h>

#include "orv_font/font_source.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/content/pen_behind.h"

namespace OrvPdf
{

void Interpreter::SetGlyphWidth(const Arguments& arguments)
{
    if (!isGlyph) {
        RejectMisplaced(arguments);
    }
}

void Interpreter::SetGlyphWidthAndBox(const Arguments& arguments)
{
    if (!isGlyph) {
        RejectMisplaced(arguments);
        return;
    }
    isColorFixed = true;
    constexpr std::size_t count = 6;
    if (arguments.Count() != count) {
        problems.Odd("d1", "it has no box", {}, arguments.Place());
        return;
    }
    const double x = arguments[2].AsMilliPoints();
    const double y = arguments[3].AsMilliPoints();
    glyphBox = {x, y, arguments[4].AsMilliPoints() - x, arguments[5].AsMilliPoints() - y};
}

bool Interpreter::ShowsGlyphs() const
{
    return state.text.font && resources.HasGlyphContents(*state.text.font);
}

/// What was shown before on the line is not asked again.
void Interpreter::GoToPen()
{
    EndRun();
    if (text.latest) {
        const OrvDoc::Detail::TextPen pen = GetPenBehind(*text.latest);
        text.penX += pen.GetX();
        text.penY += pen.GetY();
        text.latest = nullptr;
    }
    text.change = TextObject::LineChange::None;
}

void Interpreter::ShowGlyphs(std::string_view codes, const Arguments& arguments)
{
    GoToPen();
    std::vector<OrvFont::Character> characters;
    state.text.font->GetSource().Decode(codes, characters);
    MarkUsed(Inherited::text & ~Inherited::leading);
    for (const OrvFont::Character& character : characters) {
        ShowGlyph(character, arguments);
        const double spacing =
            state.text.characterSpacing + (OrvFont::IsWordSpace(character) ? state.text.wordSpacing : 0.0);
        constexpr double thousandths = 1000.0;
        const double advance = state.text.font->GetAdvance(character) / thousandths * state.text.size;
        text.penX += (advance + spacing) * state.text.scale;
    }
}

void Interpreter::ShowGlyph(const OrvFont::Character& character, const Arguments& arguments)
{
    std::string problem;
    const std::shared_ptr<FormDefinition> glyph = resources.FindGlyph(state.text.font, character, problem);
    if (!glyph) {
        if (!problem.empty()) {
            problems.Unmodelled(arguments.OperatorText(),
                                "a glyph of font " + Readable(state.text.font->GetName()) + ": " + problem,
                                {}, arguments.Place());
        }
        return;
    }
    constexpr double milliPointsInAPoint = 1000.0;
    const TextSetting& setting = state.text;
    const TextMatrix place(setting.size * setting.scale, 0.0, 0.0, setting.size,
                           text.penX * milliPointsInAPoint, (text.penY + setting.rise) * milliPointsInAPoint);
    const Matrix matrix = Plexa::Concatenate(Plexa::Concatenate(place, text.line), state.matrix);
    const std::shared_ptr<const FormUse> use =
        glyph->Use(state, Plexa::Concatenate(matrix, GetBaseMatrix()), problem);
    if (!use) {
        problems.Unmodelled(arguments.OperatorText(),
                            "a glyph of font " + Readable(setting.font->GetName()) +
                                " is left out: " + problem,
                            {}, arguments.Place());
        return;
    }
    PlaceForm(*use, matrix);
}

} // namespace OrvPdf
