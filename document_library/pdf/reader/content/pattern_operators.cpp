#include <orv_doc/path.h>
#include <orv_paint/pattern_paint.h>
#include <plexa/geometry.h>

#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/resources/matrix_key.h"
#include "pdf/reader/resources/shading_resource.h"

namespace OrvPdf
{

void Interpreter::SetPattern(PaintSetting& setting, const Arguments& arguments)
{
    const std::string_view operatorText = arguments.OperatorText();
    const std::string_view name = arguments[arguments.Count() - 1].Text();
    // The space may be the one from around the form.
    MarkUsed(&setting == &state.fill ? Inherited::fillColor : Inherited::strokeColor);
    TakeColor(setting);
    setting.color = nullptr;
    setting.pattern = nullptr;
    setting.patternColor = nullptr;
    setting.paint = nullptr;
    if (!setting.patternSpace) {
        problems.Unmodelled(operatorText, "a pattern while the colour space is not Pattern", name,
                            arguments.Place());
        return;
    }
    const auto& found = patterns.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindPattern(key, problem);
    });
    if (!found.value || !found.problem.empty()) {
        problems.Unmodelled(operatorText, "pattern /" + Readable(name) + ": " + found.problem, {},
                            arguments.Place());
    }
    const bool isUncolored = found.value && found.value->tiling && found.value->tiling->IsUncolored();
    if (isUncolored && !SetPatternColor(setting, arguments)) {
        return;
    }
    if (found.value && !isUncolored && arguments.Count() > 1) {
        problems.Odd(operatorText, "numbers in front of a pattern that has colours of its own", name,
                     arguments.Place());
    }
    setting.pattern = found.value;
}

bool Interpreter::SetPatternColor(PaintSetting& setting, const Arguments& arguments)
{
    const OrvColor::ColorSpace::Pointer space = setting.patternSpace->GetBase();
    auto color = std::make_shared<Color>();
    for (const Operand& operand : arguments.All()) {
        if (operand.IsNumber()) {
            color->components.push_back(operand.AsFloat());
        }
    }
    if (!space || color->components.size() != space->GetComponentCount()) {
        problems.Unmodelled(arguments.OperatorText(), "a pattern without the colour that it is painted in",
                            arguments[arguments.Count() - 1].Text(), arguments.Place());
        return false;
    }
    color->space = space;
    setting.patternColor = std::move(color);
    return true;
}

std::shared_ptr<const OrvPaint::Paint> Interpreter::MakeTilingPaint(const PaintSetting& setting)
{
    TilingDefinition& tiling = *setting.pattern->tiling;
    std::shared_ptr<const OrvPaint::FlatPaint> color;
    if (tiling.IsUncolored()) {
        // Where the mode says nothing, patterns that differ in it alone would be two for no reason.
        const bool dependsOnMode =
            setting.patternColor->space->GetFamily() == OrvColor::ColorSpace::Family::DeviceCMYK;
        color = paints.Get(setting.patternColor, setting.overprint, dependsOnMode && state.nonzeroOverprint);
    }
    std::string problem;
    const std::shared_ptr<const PatternUse> use = tiling.Use(color, problem);
    if (!use) {
        problems.Unmodelled({}, "pattern /" + Readable(setting.pattern->name) + " is left out: " + problem,
                            {}, {});
        return nullptr;
    }
    NoteReading(use->reading);
    return use->paint;
}

std::shared_ptr<const OrvPaint::Paint> Interpreter::MakePatternPaint(const PaintSetting& setting)
{
    const bool isFill = &setting == &state.fill;
    if ((state.inherited & (isFill ? Inherited::fillColor : Inherited::strokeColor)) != 0) {
        // Its matrix leads to the content around, whose coordinates are not known here.
        problems.Unmodelled({}, "a form that is painted in the pattern around it", {}, {});
        return nullptr;
    }
    if (setting.pattern->tiling) {
        return MakeTilingPaint(setting);
    }
    ShadingUse use;
    use.transformation = setting.pattern->matrix;
    use.overprint = setting.overprint;
    use.nonzeroOverprint = state.nonzeroOverprint;
    return setting.pattern->shading->GetPaint(use);
}

/// From the coordinates that objects are placed in now to those of the content.
Matrix Interpreter::GetBaseMatrix() const
{
    Matrix matrix;
    for (const Base& base : bases) {
        matrix = Plexa::Concatenate(base.transformation, matrix);
    }
    return matrix;
}

std::shared_ptr<const Plexa::Compound> Interpreter::MakeBoxOutline()
{
    if (!boxOutline) {
        boxOutline = Plexa::GetRectangleCompound(box);
    }
    if (bases.empty()) {
        return boxOutline;
    }
    // Under a group without inverse nothing is seen, wherever the outline is.
    const auto inverse = Plexa::Inverse(GetBaseMatrix());
    return inverse ? *inverse * boxOutline : boxOutline;
}

void Interpreter::PaintShading(const Arguments& arguments)
{
    const std::string_view name = arguments[0].Text();
    const auto& found = shadings.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindShading(key, problem);
    });
    if (!found.value || !found.problem.empty()) {
        problems.Unmodelled("sh", "shading /" + Readable(name) + ": " + found.problem, {}, arguments.Place());
    }
    if (!found.value) {
        return;
    }
    if (box.isInitial) {
        problems.Unmodelled("sh", "the content has no box that could be filled", name, arguments.Place());
        return;
    }
    ShadingUse use;
    use.transformation = Plexa::Concatenate(state.matrix, GetBaseMatrix());
    if (!IsFinite(MakeMatrixKey(use.transformation))) {
        problems.Unmodelled("sh", "the matrix goes beyond all numbers", name, arguments.Place());
        return;
    }
    use.paintsBackground = false;
    use.overprint = state.fill.overprint;
    use.nonzeroOverprint = state.nonzeroOverprint;
    auto object = std::make_unique<OrvDoc::Path>(MakeBoxOutline());
    object->SetFillPaint(found.value->GetPaint(use));
    MarkUsed(Inherited::fillOverprint | Inherited::overprintMode | Inherited::painting);
    NotePainting();
    object->SetHalftoneSet(state.halftones);
    foreignObjects.Add(object->GetID(), state.foreign);
    SetBlending(*object, ObjectAttributes());
    ownClipsLeft = 0;
    EndRun();
    tree.Place(std::move(object));
}

} // namespace OrvPdf
