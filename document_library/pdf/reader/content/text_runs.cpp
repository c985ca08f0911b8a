#include <utility>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/content/pen_behind.h"

namespace OrvPdf
{

namespace
{

// Text rendering modes (ISO 32000-1, table 106).

bool FillsText(int mode)
{
    return mode == 0 || mode == 2 || mode == 4 || mode == 6;
}

bool StrokesText(int mode)
{
    return mode == 1 || mode == 2 || mode == 5 || mode == 6;
}

bool ClipsText(int mode)
{
    return mode >= 4;
}

} // namespace

void Interpreter::BeginTextObject()
{
    text = TextObject();
    text.isOpen = true;
    // A text that is an object by itself, and the texts of a group that says that it is one, need no other.
    if (objectAttributes || (tree.GetDepth() > 0 && tree.GetInnermostRecipe().isTextGroup)) {
        return;
    }
    GroupRecipe recipe;
    recipe.isTextGroup = true;
    text.scope = tree.Open(std::move(recipe));
}

void Interpreter::EndTextObject(ByteRange place)
{
    EndRun();
    text.isOpen = false;
    if (text.scope != 0) {
        // What only clips has its place in the group that it clips.
        if (text.clips.empty()) {
            tree.Close(text.scope);
        } else {
            tree.CloseUnlessEmpty(text.scope);
        }
    }
    if (!text.clips.empty()) {
        BeginTextClip(place);
    }
    text = TextObject();
}

void Interpreter::BeginTextClip(ByteRange place)
{
    if (tree.GetDepth() > 0 && tree.GetInnermostRecipe().isClippingTextGroup) {
        for (std::unique_ptr<OrvDoc::Text>& clip : text.clips) {
            tree.Place(std::move(clip));
        }
        return;
    }
    GroupRecipe recipe;
    recipe.clipTexts =
        std::make_shared<const std::vector<std::unique_ptr<OrvDoc::Text>>>(std::move(text.clips));
    OpenClip(std::move(recipe), place);
}

bool Interpreter::PrepareShowing(const Arguments& arguments)
{
    if (!text.isOpen) {
        problems.Odd(arguments.OperatorText(), "text that is shown outside of a text object", {},
                     arguments.Place());
        const TextMatrix line = text.line;
        BeginTextObject();
        text.line = line;
    }
    if (!state.text.font) {
        problems.Unmodelled(arguments.OperatorText(), "text without a font", {}, arguments.Place());
        MarkUsed(Inherited::painting | (Inherited::text & ~Inherited::leading) |
                 (FillsText(state.text.mode) ? Inherited::fill : 0) |
                 (StrokesText(state.text.mode) ? Inherited::stroke : 0));
        return false;
    }
    return true;
}

void Interpreter::PrepareRun()
{
    // Adjustments that moved the pen on a new line before anything is shown there have no place in a run.
    const bool isPenMoved = text.penX != 0.0 || text.penY != 0.0;
    if (text.run && (!IsRunOfState() || (isPenMoved && text.change != TextObject::LineChange::None))) {
        EndRun();
    }
    if (text.run && !FollowLine()) {
        EndRun();
    }
    if (!text.run) {
        OpenRun();
    }
    text.change = TextObject::LineChange::None;
    text.run->Prepare(state.text);
}

bool Interpreter::IsRunOfState()
{
    const TextRun& run = *text.run;
    const int mode = state.text.mode;
    return run.Has(state.text) && run.transformation == state.matrix &&
           (!FillsText(mode) || run.fill == GetPaint(state.fill)) &&
           (!StrokesText(mode) ||
            (run.stroke == GetPaint(state.stroke) && run.strokeProperties == state.strokeProperties)) &&
           run.halftones == state.halftones && run.blending.value == state.blending.value &&
           run.transferFunctions == state.transfer.functions && run.foreign == state.foreign;
}

bool Interpreter::FollowLine()
{
    switch (text.change) {
    case TextObject::LineChange::None:
        return true;
    case TextObject::LineChange::Moved:
        text.run->Move(text.moveX, text.moveY);
        return true;
    case TextObject::LineChange::Set:
        break;
    }
    return text.exactLine ? text.run->GoTo(text.line, *text.exactLine) : text.run->GoTo(text.line);
}

void Interpreter::OpenRun()
{
    double x = text.penX;
    double y = text.penY;
    if (text.latest) {
        const OrvDoc::Detail::TextPen pen = GetPenBehind(*text.latest);
        x += pen.GetX();
        y += pen.GetY();
    }
    const bool isStart = x == 0.0 && y == 0.0;
    const TextMatrix matrix = isStart ? text.line : MoveInAxes(text.line, x, y).value_or(text.line);
    text.run = std::make_unique<TextRun>(state.text, matrix, x, y);
    TextRun& run = *text.run;
    run.transformation = state.matrix;
    run.halftones = state.halftones;
    run.blending = state.blending;
    run.transferFunctions = state.transfer.functions;
    run.foreign = state.foreign;
    const int mode = state.text.mode;
    if (FillsText(mode)) {
        MarkUsed(Inherited::fill);
        run.fill = GetPaint(state.fill);
    }
    if (StrokesText(mode)) {
        MarkUsed(Inherited::stroke);
        run.stroke = GetPaint(state.stroke);
        run.strokeProperties = state.strokeProperties;
    }
    MarkUsed(Inherited::text & ~Inherited::leading);
    if (FillsText(mode) || StrokesText(mode)) {
        MarkUsed(Inherited::painting);
        NotePainting();
    }
}

void Interpreter::EndRun()
{
    if (!text.run) {
        return;
    }
    const std::unique_ptr<TextRun> run = std::move(text.run);
    const int mode = run->GetSetting().mode;
    const OrvDoc::Text* latest = nullptr;
    if (ClipsText(mode)) {
        text.clips.push_back(run->MakeText());
        latest = text.clips.back().get();
        if (mode == 7 && objectAttributes) {
            text.clips.back()->SetName(TakeAttributes().name);
        }
    }
    if (mode != 7) {
        latest = PlaceText(*run);
    }
    if (text.change == TextObject::LineChange::None) {
        text.penX = run->GetOffsetX();
        text.penY = run->GetOffsetY();
        text.latest = latest;
    }
}

const OrvDoc::Text* Interpreter::PlaceText(TextRun& run)
{
    const ObjectAttributes attributes = TakeAttributes();
    std::unique_ptr<OrvDoc::Text> object = run.MakeText();
    if (!attributes.name.empty()) {
        object->SetName(attributes.name);
    }
    if (run.fill) {
        object->SetFillPaint(run.fill);
    }
    if (run.stroke) {
        object->SetStrokePaint(run.stroke);
        object->SetSharedStrokeProperties(run.strokeProperties);
    }
    const bool isPainted = FillsText(run.GetSetting().mode) || StrokesText(run.GetSetting().mode);
    if (isPainted || attributes.halftones) {
        object->SetHalftoneSet(run.halftones);
    }
    foreignObjects.Add(object->GetID(), run.foreign);
    SetBlending(*object, attributes, run.blending);
    ownClipsLeft = 0;
    const OrvDoc::Text* const placed = object.get();
    return tree.Place(std::move(object)) ? placed : nullptr;
}

} // namespace OrvPdf
