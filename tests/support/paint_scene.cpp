#include "paint_scene.h"

#include "support/text_makers.h"

#include <orv_doc/halftone_set.h>

#include <string>
#include <utility>
#include <vector>

namespace HarrowSupport::Testing
{

namespace
{

using OrvPaint::FormPaint;

FormPaint::Factory FormOfFile(OrvDoc::Document& document, const std::string& name)
{
    return AForm(document, name).SetScope(FormPaint::Scope::File).SetUniqueID(std::string("id"));
}

} // namespace

Scene::Scene()
    : document(NewDocument()),
      path(Filled(Flat(Tints({{"Cyan", 0.5f}})))),
      clip(Square("clip")),
      group(ImplicitGroup()),
      text(TextOf("AB")),
      mask(MaskOf(*document, Filled(FormOf(*document, Square("in the mask")).Get()))
               .SetBackdropColor(Tints({{"Black", 1.0f}}))),
      axial(AxialShadingOf(Components({{"Cyan", 0}, {"Spot", 1}}), Ramp({0.0f, 0.5f}, {1.0f, 0.25f}))
                .SetBackground(std::vector<OrvColor::Component>{0.25f, 0.75f})),
      radial(ARadialShading()),
      registration(AxialShadingOf(ComponentForAll(0), Ramp({0.0f}, {1.0f}))),
      pattern(APattern(*document)),
      uncolored(AnUncoloredPattern(*document, Tints({{"Spot", 1.0f}}))),
      firstOfCell(APattern(*document, "cell of two")),
      secondOfCell(firstOfCell),
      form(AForm(*document)
               .SetScope(FormPaint::Scope::Global)
               .SetUniqueID(std::string("global"))
               .SetExternalReference(std::make_pair(boost::filesystem::path("parts.pdf"), std::size_t{1}))),
      firstOfId(FormOfFile(*document, "first")),
      secondOfId(FormOfFile(*document, "second")),
      picture(SoftMasked({}, MaskPlan())),
      stencilled(StencilMasked({}, StencilPlan())),
      independent(PlanIn(OrvImg::CalRGB(), {ColorChannel("Spot")})),
      stencil(StencilPlan()),
      stage(NewContent(*document, OrvDoc::Content::Type::FormContent)),
      last(Square("last"))
{
    path->SetName("path");
    path->SetStrokePaint(Flat(Tints({{"Black", 1.0f}})));
    path->SetHalftoneSet(std::make_shared<OrvDoc::HalftoneSet>("Round", OrvSys::PdfObject::Integer(1)));
    group->SetTransparency(std::make_shared<const OrvBlend::Transparency>());
    secondOfCell.SetStep({1000.0, 1000.0});
    indexed.samples = {0, 1, 2, 3};
    indexed.table = MakeTable(2, {10, 20, 30, 40, 50, 60, 70, 80});
    indexed.mapping = Places({{"Spot", ChannelAt(0)}});
}

OrvDoc::Document& Scene::Assemble()
{
    Place(*stage, std::move(path));
    Place(*stage, With(UserGroup(), std::move(clip)));
    Place(*stage, With(std::move(group), Square("in the group")));
    Place(*stage, With(std::make_unique<OrvDoc::TextGroup>(), std::move(text)));
    if (isMasked)
        transparency.softMask = mask.Get();
    auto blended = Square("blended");
    if (isBlended)
        blended->SetTransparency(std::make_shared<const OrvBlend::Transparency>(transparency));
    Place(*stage, std::move(blended));
    PlaceShadings();
    PlacePatterns();
    PlaceForms();
    PlacePictures();
    if (last != nullptr)
        Place(*stage, std::move(last));
    if (extra != nullptr)
        Place(*stage, std::move(extra));

    const PaintPointer fifth = FormPaint::Factory(stage).Get();
    const PaintPointer fourth =
        FormOf(*document, With(UserGroup(), Filled(fifth)), Square("behind the fifth")).Get();
    const PaintPointer third = PatternOf(*document, Filled(fourth), Square("behind the fourth")).Get();
    const PaintPointer second = FormOf(*document, Stroked(third), Square("behind the third")).Get();
    Fill(ContentOf(*document), With(NamedGroup("page"), Filled(second)), Square("behind the second"));
    return *document;
}

void Scene::PlaceShadings()
{
    Fill(*stage, Filled(axial.Get()), Filled(radial.Get()), Filled(registration.Get()));
}

void Scene::PlacePatterns()
{
    const PaintPointer first = pattern.Get();
    const PaintPointer again = patternIsShared ? first : pattern.Get();
    Fill(*stage, Filled(first), Stroked(again), Filled(uncolored.Get()), Filled(firstOfCell.Get()),
         Filled(secondOfCell.Get()));
}

void Scene::PlaceForms()
{
    const PaintPointer first = form.Get();
    const PaintPointer again = formIsShared ? first : form.Get();
    Fill(*stage, Filled(first), Filled(again), Filled(firstOfId.Get()), Filled(secondOfId.Get()));
}

void Scene::PlacePictures()
{
    Fill(*stage, ImageOf(picture), ImageOf(stencilled), ImageOf(independent), ImageOf(indexed),
         ImageMaskOf(stencil));
}

} // namespace HarrowSupport::Testing
