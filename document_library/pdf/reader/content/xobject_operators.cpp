#include <orv_blend/transparency.h>
#include <orv_doc/path.h>
#include <orv_paint/form_paint.h>

#include "pdf/form_outline.h"
#include "pdf/reader/content/inherited_parameters.h"
#include "pdf/reader/content/interpreter.h"
#include "pdf/reader/pictures/picture_resource.h"

namespace OrvPdf
{

void Interpreter::PaintXObject(const Arguments& arguments)
{
    using Kind = ContentResources::XObject::Kind;
    const std::string_view name = arguments[0].Text();
    const auto& found = xObjects.Get(name, [this](const std::string& key, std::string& problem) {
        return resources.FindXObject(key, problem);
    });
    if (!found.problem.empty() && found.value.picture) {
        problems.Odd("Do", "picture /" + Readable(name) + ": " + found.problem, {}, arguments.Place());
    } else if (!found.problem.empty()) {
        problems.Unmodelled("Do", "resource /" + Readable(name) + ": " + found.problem, {},
                            arguments.Place());
    }
    if (const std::shared_ptr<PictureResource> picture = found.value.picture) {
        PaintPicture(*picture);
    } else if (found.value.kind == Kind::Picture) {
        NotePicture(found.value.isStencil);
    } else if (const std::shared_ptr<FormDefinition> form = found.value.form) {
        PaintForm(*form, arguments);
    }
}

void Interpreter::PaintForm(FormDefinition& form, const Arguments& arguments)
{
    const auto layer = form.GetLayer();
    ScopeTree::Id scope = 0;
    if (layer) {
        GroupRecipe recipe;
        recipe.membership = layer;
        EndRun();
        scope = tree.Open(std::move(recipe));
    }
    if (GroupUse group = form.TakeGroup(state, GetBaseMatrix()); group.group) {
        PlaceGroup(std::move(group));
    } else {
        std::string problem;
        if (const std::shared_ptr<const FormUse> use =
                form.Use(state, Plexa::Concatenate(state.matrix, GetBaseMatrix()), problem)) {
            PlaceForm(*use);
        } else {
            problems.Unmodelled("Do", "form /" + Readable(arguments[0].Text()) + " is left out: " + problem,
                                {}, arguments.Place());
        }
    }
    if (layer) {
        tree.Close(scope);
    }
}

void Interpreter::PlaceGroup(GroupUse use)
{
    OrvDoc::Group& group = *use.group;
    NoteReading(use.reading);
    MarkUsed(use.usedParameters);
    if ((use.usedParameters & Inherited::transferFunctions) != 0) {
        NotePainting();
    }
    foreignObjects.Add(group.GetID(), state.foreign);
    if (use.foreign) {
        foreignObjects.Add(*use.foreign);
    }
    SetGroupBlending(group, group.GetTransparency()->isolated, group.GetTransparency()->knockout);
    if (!Plexa::IsIdentity(state.matrix)) {
        group.SetTransformation(Plexa::Concatenate(group.GetTransformation(), state.matrix));
    }
    ownClipsLeft = 0;
    EndRun();
    tree.Place(std::move(use.group));
}

void Interpreter::PlaceForm(const FormUse& use, const Matrix& matrix)
{
    const ObjectAttributes attributes = TakeAttributes();
    auto object =
        std::make_unique<OrvDoc::Path>(attributes.outline ? attributes.outline : MakeFormOutline(*use.paint));
    if (!attributes.name.empty()) {
        object->SetName(attributes.name);
    }
    if (!Plexa::IsIdentity(matrix)) {
        object->SetTransformation(matrix);
    }
    object->SetFillPaint(use.paint);
    foreignObjects.Add(object->GetID(), state.foreign);
    if (use.isGroup) {
        SetGroupBlending(*object, use.isIsolated, use.isKnockout);
    }
    MarkUsed(use.usedParameters);
    NoteReading(use.reading);
    if (use.isLossy) {
        problems.MarkUnmodelled();
    }
    ownClipsLeft = 0;
    EndRun();
    tree.Place(std::move(object));
}

void Interpreter::SetGroupBlending(OrvDoc::Blendable& object, bool isIsolated, bool isKnockout)
{
    MarkUsed(Inherited::blending);
    OrvBlend::Transparency value = state.blending.value;
    value.isolated = isIsolated;
    value.knockout = isKnockout;
    object.SetTransparency(transparencies.Get(value));
}

void Interpreter::NoteReading(const std::shared_ptr<const NestedReading>& reading)
{
    if (reading && knownNested.insert(reading.get()).second) {
        nested.push_back(reading);
    }
}

} // namespace OrvPdf
