#include <cmath>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"

namespace OrvPdf
{

// Text state (9.3).

void Interpreter::SetCharacterSpacing(const Arguments& arguments)
{
    state.text.characterSpacing = arguments[0].AsNumber();
    state.inherited &= ~Inherited::characterSpacing;
}

void Interpreter::SetWordSpacing(const Arguments& arguments)
{
    state.text.wordSpacing = arguments[0].AsNumber();
    state.inherited &= ~Inherited::wordSpacing;
}

void Interpreter::SetHorizontalScaling(const Arguments& arguments)
{
    state.text.scale = arguments[0].AsHundredths();
    state.inherited &= ~Inherited::horizontalScaling;
}

void Interpreter::SetLeading(const Arguments& arguments)
{
    state.text.leading = arguments[0].AsNumber();
    state.inherited &= ~Inherited::leading;
}

void Interpreter::SetTextRise(const Arguments& arguments)
{
    state.text.rise = arguments[0].AsNumber();
    state.inherited &= ~Inherited::textRise;
}

void Interpreter::SetTextRenderingMode(const Arguments& arguments)
{
    const double mode = arguments[0].AsNumber();
    if (!(mode >= 0.0 && mode <= 7.0) || mode != std::floor(mode)) {
        problems.Damaged("Tr", "no text rendering mode has this number", arguments[0].Text(),
                         arguments.Place());
        return;
    }
    state.text.mode = static_cast<int>(mode);
    state.inherited &= ~Inherited::textMode;
}

void Interpreter::SetFont(const Arguments& arguments)
{
    const std::string_view name = arguments[0].Text();
    const auto& found = fonts.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindFont(key, problem);
    });
    TakeFont(found.value, arguments[1].AsNumber(), found.problem, arguments);
}

void Interpreter::TakeFont(const std::shared_ptr<const OrvFont::Font>& font, double size,
                           const std::string& problem, const Arguments& arguments)
{
    const std::string place = "font /" + Readable(arguments[0].Text()) + ": ";
    if (!font) {
        problems.Unmodelled(arguments.OperatorText(),
                            place + (problem.empty() ? "not among the resources" : problem), {},
                            arguments.Place());
    } else if (!problem.empty()) {
        problems.Odd(arguments.OperatorText(), place + problem, {}, arguments.Place());
    }
    state.text.font = font;
    state.text.size = size;
    state.inherited &= ~Inherited::textFont;
}

// Text objects and positions (9.4.1, 9.4.2).

void Interpreter::BeginText(const Arguments& arguments)
{
    if (text.isOpen) {
        problems.Odd("BT", "a text object inside of a text object", {}, arguments.Place());
        EndTextObject(arguments.Place());
    }
    BeginTextObject();
}

void Interpreter::EndText(const Arguments& arguments)
{
    if (!text.isOpen) {
        problems.Damaged("ET", "there is no text object to end", {}, arguments.Place());
        return;
    }
    EndTextObject(arguments.Place());
}

void Interpreter::SetLine(const TextMatrix& line)
{
    text.line = line;
    text.penX = 0.0;
    text.penY = 0.0;
    text.latest = nullptr;
    text.exactLine = boost::none;
}

void Interpreter::MoveLine(double x, double y, const Arguments& arguments)
{
    const boost::optional<TextMatrix> line = MoveInAxes(text.line, x, y);
    if (!line) {
        problems.Damaged(arguments.OperatorText(), "the line goes beyond all numbers", {}, arguments.Place());
        return;
    }
    SetLine(*line);
    if (text.change == TextObject::LineChange::None) {
        text.change = TextObject::LineChange::Moved;
        text.moveX = x;
        text.moveY = y;
    } else {
        text.moveX += x;
        text.moveY += y;
    }
}

void Interpreter::MoveText(const Arguments& arguments)
{
    MoveLine(arguments[0].AsNumber(), arguments[1].AsNumber(), arguments);
}

void Interpreter::MoveTextSetLeading(const Arguments& arguments)
{
    state.text.leading = -arguments[1].AsNumber();
    state.inherited &= ~Inherited::leading;
    MoveText(arguments);
}

void Interpreter::NextLine(const Arguments& arguments)
{
    MarkUsed(Inherited::leading);
    MoveLine(0.0, -state.text.leading, arguments);
}

void Interpreter::SetTextMatrix(const Arguments& arguments)
{
    const bool isNamed = exactLineOperation != 0 && exactLineOperation + 1 == operationNumber;
    SetLine(TextMatrix(arguments[0].AsNumber(), arguments[1].AsNumber(), arguments[2].AsNumber(),
                       arguments[3].AsNumber(), arguments[4].AsMilliPoints(), arguments[5].AsMilliPoints()));
    text.change = TextObject::LineChange::Set;
    if (isNamed) {
        text.exactLine = exactLine;
    }
}

// Text showing (9.4.3).

void Interpreter::ShowString(std::string_view codes, const Arguments& arguments)
{
    const bool isShown = !codes.empty() || (objectAttributes && objectAttributes->showsNothing);
    if (!isShown || !PrepareShowing(arguments)) {
        return;
    }
    if (ShowsGlyphs()) {
        ShowGlyphs(codes, arguments);
    } else {
        PrepareRun();
        text.run->Show(codes);
    }
}

void Interpreter::ShowText(const Arguments& arguments)
{
    ShowString(arguments[0].Text(), arguments);
}

void Interpreter::ShowTextAdjusted(const Arguments& arguments)
{
    bool isShown = false;
    for (const Operand& element : arguments[0].Elements()) {
        isShown = isShown || (element.IsString() && !element.Text().empty());
        if (!element.IsString() && !element.IsNumber()) {
            problems.Odd("TJ", "an element that is neither text nor number", {}, arguments.Place());
        }
    }
    if (isShown && !PrepareShowing(arguments)) {
        return;
    }
    const bool showsGlyphs = ShowsGlyphs();
    if (isShown && !showsGlyphs) {
        PrepareRun();
    }
    for (const Operand& element : arguments[0].Elements()) {
        if (element.IsNumber()) {
            Adjust(element.AsNumber());
        } else if (element.IsString() && !element.Text().empty()) {
            if (showsGlyphs) {
                ShowGlyphs(element.Text(), arguments);
            } else {
                text.run->Show(element.Text());
            }
        }
    }
}

void Interpreter::NextLineShowText(const Arguments& arguments)
{
    NextLine(arguments);
    ShowString(arguments[0].Text(), arguments);
}

void Interpreter::NextLineShowTextWithSpacing(const Arguments& arguments)
{
    state.text.wordSpacing = arguments[0].AsNumber();
    state.text.characterSpacing = arguments[1].AsNumber();
    state.inherited &= ~(Inherited::wordSpacing | Inherited::characterSpacing);
    NextLine(arguments);
    ShowString(arguments[2].Text(), arguments);
}

void Interpreter::Adjust(double thousandths)
{
    const TextSetting& setting = state.text;
    if (text.run && !text.run->Has(setting)) {
        EndRun();
    }
    if (text.run && text.change == TextObject::LineChange::None) {
        text.run->Prepare(setting);
        text.run->Adjust(thousandths);
        return;
    }
    const double back = thousandths / 1000.0 * setting.size;
    const bool isVertical = setting.font && setting.font->GetWritingMode() == OrvFont::WritingMode::Vertical;
    text.penX -= isVertical ? 0.0 : back * setting.scale;
    text.penY -= isVertical ? back : 0.0;
}

} // namespace OrvPdf
