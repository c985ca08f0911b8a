// Copies of what holds contents of its own: patterns, forms and soft masks.

#include <orv_doc/clone.h>

#include <gtest/gtest.h>

#include <stdexcept>

#include <orv_color/color_space.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/text_group.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/exponential_function.h>

#include "document_library/orv_doc/nested_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;
using OrvBlend::SoftMask;
using OrvBlend::Transparency;
using OrvPaint::FormPaint;
using OrvPaint::Paint;
using OrvPaint::PatternPaint;

class CloningNested : public testing::Test
{
protected:
    std::shared_ptr<const FormPaint> Clone(const std::shared_ptr<const FormPaint>& form)
    {
        return std::static_pointer_cast<const FormPaint>(strategy.ClonePaint(form));
    }
    std::shared_ptr<const PatternPaint> Clone(const std::shared_ptr<const PatternPaint>& pattern)
    {
        return std::static_pointer_cast<const PatternPaint>(strategy.ClonePaint(pattern));
    }

    std::unique_ptr<Document> source = Document::CreateNew();
    std::unique_ptr<Document> target = Document::CreateNew();
    PageContent& sourceContent = source->AddPage({0, 0, 1, 1}).GetContent();
    PageContent& targetContent = target->AddPage({0, 0, 1, 1}).GetContent();
    CloneStrategy strategy{*target, CloneStrategy::CloneFlags::Full};
};

const Path& FirstPath(const Content& content)
{
    return dynamic_cast<const Path&>(*content.GetChildren().first);
}

const Path& LastPath(const Content& content)
{
    return dynamic_cast<const Path&>(*content.GetChildren().last);
}

const FormPaint& FormOf(const Path& path)
{
    return dynamic_cast<const FormPaint&>(*path.GetFillPaint());
}

std::shared_ptr<const OrvPaint::Function> MakeFunction()
{
    return OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).Get();
}

TEST_F(CloningNested, FlatPaintsAndShadingsStandForThemselves)
{
    const auto flat = MakeBlack();
    EXPECT_EQ(strategy.ClonePaint(flat), flat);
    const std::shared_ptr<const Paint> shading =
        OrvPaint::AxialShadingPaint::Factory({}).SetFunction(MakeFunction()).Get();
    EXPECT_EQ(strategy.ClonePaint(shading), shading);
    EXPECT_EQ(strategy.ClonePaint(nullptr), nullptr);
}

TEST_F(CloningNested, ATransparencyWithoutSoftMaskStandsForItself)
{
    const auto transparency = Transparency::Factory().SetFillAlpha(0.5f).Get();
    EXPECT_EQ(strategy.CloneTransparency(transparency), transparency);
    EXPECT_EQ(strategy.CloneTransparency(nullptr), nullptr);
}

TEST_F(CloningNested, AFormKeepsItsFieldsOverAContentOfTheTarget)
{
    const ContentPointer content = MakeFormContent(*source);
    AddFilled(*content, MakeBlack()).SetName("inside");
    const auto form =
        FormPaint::Factory(content)
            .SetFormTransformation(Scaling(2))
            .SetFormBBox({1, 2, 3, 4})
            .SetExternalReference(std::make_pair(boost::filesystem::path("a.pdf"), std::size_t{5}))
            .SetScope(FormPaint::Scope::File)
            .SetUniqueID(std::string("X-1"))
            .Get();
    const auto clone = Clone(form);
    EXPECT_EQ(clone->GetFormTransformation(), Scaling(2));
    EXPECT_EQ(clone->GetFormBBox(), Rectangle(1, 2, 3, 4));
    EXPECT_TRUE(clone->GetExternalReference() == form->GetExternalReference());
    EXPECT_TRUE(clone->GetScope() == FormPaint::Scope::File);
    EXPECT_TRUE(clone->GetUniqueID() == std::string("X-1"));
    EXPECT_EQ(&clone->GetContent().GetDocument(), target.get());
    EXPECT_EQ(clone->GetContent().GetType(), Content::Type::FormContent);
    EXPECT_EQ(FirstPath(clone->GetContent()).GetName(), "inside");
    EXPECT_EQ(FirstPath(clone->GetContent()).GetContent(), &clone->GetContent());
    EXPECT_EQ(CountObjects(content->GetChildren()), 1u);
}

TEST_F(CloningNested, APatternKeepsItsFieldsOverACellOfTheTarget)
{
    const ContentPointer cell = MakeContent(*source, Content::Type::UncoloredPatternContent);
    Add(*cell, MakePath()).SetName("inside");
    const auto color =
        OrvPaint::FlatPaint::Factory(OrvColor::ColorSpace::DeviceGray(), {0.5f}, false, false).Get();
    const auto pattern = PatternPaint::Factory(cell)
                             .SetTransformation(Scaling(3))
                             .SetCellClip({1, 2, 3, 4})
                             .SetStep({5, -6})
                             .SetColor(color)
                             .SetTilingType(PatternPaint::TilingType::FasterTiling)
                             .Get();
    const auto clone = Clone(pattern);
    EXPECT_EQ(clone->GetTransformation(), Scaling(3));
    EXPECT_EQ(clone->GetCellClip(), Rectangle(1, 2, 3, 4));
    EXPECT_EQ(clone->GetStep(), pattern->GetStep());
    EXPECT_TRUE(clone->GetColor() == color->GetColor());
    EXPECT_EQ(clone->GetNativeColor(), color);
    EXPECT_EQ(clone->GetTilingType(), PatternPaint::TilingType::FasterTiling);
    EXPECT_EQ(&clone->GetContent().GetDocument(), target.get());
    EXPECT_EQ(clone->GetContent().GetType(), Content::Type::UncoloredPatternContent);
    EXPECT_EQ(FirstPath(clone->GetContent()).GetName(), "inside");
}

TEST_F(CloningNested, ASoftMaskKeepsItsFieldsOverADrawingOfTheTarget)
{
    const ContentPointer drawing = MakeMaskContent(*source);
    Add(*drawing, MakePath()).SetName("inside");
    const auto function = MakeFunction();
    const auto backdrop =
        OrvPaint::FlatPaint::Factory(OrvColor::ColorSpace::DeviceGray(), {0.5f}, false, false).Get();
    const auto transparency = Transparency::Factory()
                                  .SetBlendMode(OrvBlend::BlendMode::Screen)
                                  .SetFillAlpha(0.25f)
                                  .SetStrokeAlpha(0.75f)
                                  .SetIsolated(true)
                                  .SetKnockout(true)
                                  .SetAlphaIsShape(true)
                                  .SetSoftMask(SoftMask::Factory(drawing)
                                                   .SetTransformation(Scaling(2))
                                                   .SetBoundingBox({1, 2, 3, 4})
                                                   .SetBackdropColor(backdrop)
                                                   .SetAlpha(true)
                                                   .SetTransferFunction(function)
                                                   .SetKnockout(true)
                                                   .Get())
                                  .Get();
    const auto clone = strategy.CloneTransparency(transparency);
    EXPECT_EQ(clone->blendMode, OrvBlend::BlendMode::Screen);
    EXPECT_EQ(clone->fillAlpha, 0.25f);
    EXPECT_EQ(clone->strokeAlpha, 0.75f);
    EXPECT_TRUE(clone->isolated && clone->knockout && clone->alphaIsShape);
    ASSERT_NE(clone->softMask, nullptr);
    EXPECT_NE(clone->softMask, transparency->softMask);
    const SoftMask& mask = *clone->softMask;
    EXPECT_EQ(mask.GetTransformation(), Scaling(2));
    EXPECT_EQ(mask.GetBoundingBox(), Rectangle(1, 2, 3, 4));
    EXPECT_EQ(mask.GetBackdropColor(), backdrop->GetColor());
    EXPECT_EQ(mask.GetNativeBackdrop(), backdrop);
    EXPECT_TRUE(mask.IsAlpha());
    EXPECT_TRUE(mask.IsKnockout());
    EXPECT_EQ(mask.GetTransferFunction(), transparency->softMask->GetTransferFunction());
    EXPECT_EQ(&mask.GetContent().GetDocument(), target.get());
    EXPECT_EQ(FirstPath(mask.GetContent()).GetName(), "inside");
}

TEST_F(CloningNested, ANestedContentKeepsItsBlendColorSpaceAndTransferFunctions)
{
    const ContentPointer content = MakeFormContent(*source);
    content->SetBlendColorSpace(BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK()));
    content->SetTransferFunctionSet(TransferFunctionSet(MakeFunction(), {}));
    const auto clone = Clone(MakeForm(content));
    EXPECT_EQ(clone->GetContent().GetBlendColorSpace(), content->GetBlendColorSpace());
    EXPECT_TRUE(clone->GetContent().GetTransferFunctionSet() == content->GetTransferFunctionSet());
}

TEST_F(CloningNested, EveryKindOfObjectTakesACopy)
{
    const auto form = MakeForm(MakeFormContent(*source));
    const auto masked = MakeMasked(MakeMaskContent(*source));
    const auto clone = [this](const auto& object) {
        return std::unique_ptr<std::decay_t<decltype(object)>>(object.Clone(strategy));
    };
    const auto path = MakePath();
    path->SetFillPaint(form);
    path->SetStrokePaint(MakePattern(MakeCell(*source)));
    path->SetTransparency(masked);
    const auto pathClone = clone(*path);
    EXPECT_EQ(pathClone->GetFillPaint(), strategy.ClonePaint(form));
    EXPECT_EQ(pathClone->GetStrokePaint(), strategy.ClonePaint(path->GetStrokePaint()));
    EXPECT_NE(pathClone->GetStrokePaint(), path->GetStrokePaint());
    EXPECT_EQ(pathClone->GetTransparency(), strategy.CloneTransparency(masked));

    ImageMask imageMask(nullptr);
    imageMask.SetFillPaint(form);
    EXPECT_EQ(clone(imageMask)->GetFillPaint(), pathClone->GetFillPaint());
    Image image(nullptr);
    image.SetTransparency(masked);
    EXPECT_EQ(clone(image)->GetTransparency(), pathClone->GetTransparency());
    TextGroup group;
    group.SetTransparency(masked);
    EXPECT_EQ(clone(group)->GetTransparency(), pathClone->GetTransparency());
    EXPECT_NE(pathClone->GetFillPaint(), form);
    EXPECT_NE(pathClone->GetTransparency(), masked);
}

TEST_F(CloningNested, OnePaintStaysOneAcrossCallsAndContents)
{
    const auto shared = MakeForm(MakeFormContent(*source));
    const ContentPointer outer = MakeFormContent(*source);
    AddFilled(*outer, shared);
    AddFilled(sourceContent, MakeForm(outer));
    AddFilled(sourceContent, shared);
    CloneContent(sourceContent, targetContent, strategy);
    const auto& clone = LastPath(targetContent).GetFillPaint();
    EXPECT_NE(clone, shared);
    EXPECT_EQ(FirstPath(FormOf(FirstPath(targetContent)).GetContent()).GetFillPaint(), clone);
    EXPECT_EQ(strategy.ClonePaint(shared), clone);
}

TEST_F(CloningNested, PaintsThatShareACellStillShareOne)
{
    const ContentPointer cell = MakeCell(*source);
    const auto first = Clone(MakePattern(cell));
    const auto second = Clone(PatternPaint::Factory(cell).SetTransformation(Scaling(2)).Get());
    EXPECT_NE(first, second);
    EXPECT_EQ(first->GetSharedContent(), second->GetSharedContent());
    EXPECT_NE(first->GetSharedContent(), cell);
    EXPECT_EQ(second->GetTransformation(), Scaling(2));
}

TEST_F(CloningNested, EqualContentsOfTheirOwnStayTwo)
{
    const auto first = Clone(MakeForm(MakeFormContent(*source)));
    const auto second = Clone(MakeForm(MakeFormContent(*source)));
    EXPECT_NE(first->GetSharedContent(), second->GetSharedContent());
}

TEST_F(CloningNested, OneSoftMaskInTwoTransparenciesStaysOne)
{
    const auto mask = SoftMask::Factory(MakeMaskContent(*source)).Get();
    const auto first = Transparency::Factory().SetSoftMask(mask).Get();
    const auto second = Transparency::Factory().SetSoftMask(mask).SetFillAlpha(0.5f).Get();
    const auto firstClone = strategy.CloneTransparency(first);
    EXPECT_EQ(strategy.CloneTransparency(second)->softMask, firstClone->softMask);
    EXPECT_EQ(strategy.CloneTransparency(first), firstClone);
}

TEST_F(CloningNested, TwoStrategiesShareNothing)
{
    const auto form = MakeForm(MakeFormContent(*source));
    CloneStrategy other(*target, CloneStrategy::CloneFlags::Full);
    const auto clone = std::static_pointer_cast<const FormPaint>(other.ClonePaint(form));
    EXPECT_NE(Clone(form)->GetSharedContent(), clone->GetSharedContent());
}

TEST_F(CloningNested, InsideOneDocumentCopiesAsDeep)
{
    const auto form = MakeForm(MakeFormContent(*source));
    AddFilled(form->GetContent(), MakeBlack());
    CloneStrategy within(*source, CloneStrategy::CloneFlags::Full);
    const auto clone = std::static_pointer_cast<const FormPaint>(within.ClonePaint(form));
    EXPECT_NE(clone->GetSharedContent(), form->GetSharedContent());
    EXPECT_EQ(CountObjects(clone->GetContent().GetChildren()), 1u);
}

TEST_F(CloningNested, LayersInsideOfAFormComeAlong)
{
    const ContentPointer content = MakeFormContent(*source);
    Add(*content, std::make_unique<Layer>(source->GetLayers().AddLayer("Cutting")));
    const auto clone = Clone(MakeForm(content));
    ASSERT_EQ(target->GetLayers().GetAllLayers().size(), 1u);
    EXPECT_EQ(clone->GetContent().GetChildren().first->GetName(), "Cutting");
}

TEST_F(CloningNested, OutlivesItsSource)
{
    ContentPointer inner = MakeMaskContent(*source);
    AddFilled(*inner, MakeBlack()).SetName("innermost");
    ContentPointer cell = MakeCell(*source);
    AddFilled(*cell, MakeBlack()).SetTransparency(MakeMasked(inner));
    ContentPointer content = MakeFormContent(*source);
    AddFilled(*content, MakePattern(cell));
    AddFilled(sourceContent, MakeForm(content));
    const std::weak_ptr<Content> watch = inner;
    {
        CloneStrategy brief(*target, CloneStrategy::CloneFlags::Full);
        CloneContent(sourceContent, targetContent, brief);
    }
    content.reset();
    cell.reset();
    inner.reset();
    source.reset();
    EXPECT_TRUE(watch.expired());
    const auto& form = FormOf(FirstPath(targetContent));
    const auto& pattern = dynamic_cast<const PatternPaint&>(*FirstPath(form.GetContent()).GetFillPaint());
    const auto& mask = *FirstPath(pattern.GetContent()).GetTransparency()->softMask;
    EXPECT_EQ(FirstPath(mask.GetContent()).GetName(), "innermost");
    EXPECT_EQ(&mask.GetContent().GetDocument(), target.get());
}

TEST_F(CloningNested, AFormThatHoldsItselfHoldsItselfAsACopy)
{
    const ContentPointer content = MakeFormContent(*source);
    const auto form = MakeForm(content);
    AddFilled(*content, form);
    const auto clone = Clone(form);
    EXPECT_EQ(FirstPath(clone->GetContent()).GetFillPaint(), clone);
    EXPECT_EQ(CountObjects(clone->GetContent().GetChildren()), 1u);
    // What holds itself is held until its ring is broken.
    for (Content* const ring : {content.get(), &clone->GetContent()})
        static_cast<Path&>(*ring->GetChildren().first).SetFillPaint(nullptr);
}

/// An object that cannot be copied while it is told so.
class Stubborn : public Path
{
public:
    Stubborn() : Path(MakeRectangle(0, 0, 1, 1)) {}
    Path* Clone(CloneStrategy& strategy) const override
    {
        if (refuses)
            throw std::runtime_error("refused");
        return Path::Clone(strategy);
    }
    bool refuses = true;
};

TEST_F(CloningNested, NothingHalfMadeIsKeptAfterAFailure)
{
    const ContentPointer inner = MakeFormContent(*source);
    Stubborn& stubborn = Add(*inner, std::make_unique<Stubborn>());
    const ContentPointer outer = MakeFormContent(*source);
    AddFilled(*outer, MakeBlack());
    AddFilled(*outer, MakeForm(inner));
    const auto form = MakeForm(outer);
    EXPECT_THROW(Clone(form), std::runtime_error);
    stubborn.refuses = false;
    const auto clone = Clone(form);
    ASSERT_EQ(CountObjects(clone->GetContent().GetChildren()), 2u);
    EXPECT_EQ(CountObjects(FormOf(LastPath(clone->GetContent())).GetContent().GetChildren()), 1u);
}

// Each of these would end in a stack overflow, or never end, if depth of contents were depth of the stack or
// a shared content were copied at each of its places.

std::shared_ptr<const FormPaint> MakeTower(Document& document, std::size_t height, int places)
{
    std::shared_ptr<const FormPaint> form = MakeForm(MakeFormContent(document));
    while (--height) {
        const ContentPointer content = MakeFormContent(document);
        for (int place = 0; place < places; ++place)
            AddFilled(*content, form);
        form = MakeForm(content);
    }
    return form;
}

std::size_t MeasureTower(const FormPaint& tower)
{
    std::size_t height = 1;
    for (const FormPaint* form = &tower; form->GetContent().GetChildren().first; ++height)
        form = &FormOf(FirstPath(form->GetContent()));
    return height;
}

std::shared_ptr<const Paint> FindBottom(const std::shared_ptr<const FormPaint>& tower)
{
    std::shared_ptr<const Paint> bottom = tower;
    while (true) {
        const Content& content = static_cast<const FormPaint&>(*bottom).GetContent();
        if (!content.GetChildren().first)
            return bottom;
        bottom = FirstPath(content).GetFillPaint();
    }
}

constexpr std::size_t depth = 100'000;

TEST_F(CloningNested, FormsInsideOneAnotherAreCopiedAndDestroyed)
{
    auto tower = MakeTower(*source, depth, 1);
    auto clone = Clone(tower);
    EXPECT_EQ(MeasureTower(*clone), depth);
    EXPECT_EQ(&clone->GetContent().GetDocument(), target.get());
}

TEST(DestroyingNested, FormsInsideOneAnotherAreDestroyedOfThemselves)
{
    const auto document = Document::CreateNew();
    auto tower = MakeTower(*document, depth, 1);
    const std::weak_ptr<const Paint> bottom = FindBottom(tower);
    EXPECT_FALSE(bottom.expired());
    tower.reset();
    EXPECT_TRUE(bottom.expired());
}

TEST(DestroyingNested, PatternsAndSoftMasksInsideOneAnotherAreDestroyedToo)
{
    const auto document = Document::CreateNew();
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    auto transparency = MakeMasked(MakeMaskContent(*document));
    const std::weak_ptr<const SoftMask> bottom = transparency->softMask;
    for (std::size_t level = 0; level < depth / 2; ++level) {
        const ContentPointer cell = MakeCell(*document);
        Add(*cell, MakePath()).SetTransparency(std::move(transparency));
        const ContentPointer drawing = MakeMaskContent(*document);
        AddFilled(*drawing, MakePattern(cell));
        transparency = MakeMasked(drawing);
    }
    Path& path = Add(content, MakePath());
    path.SetTransparency(std::move(transparency));
    EXPECT_FALSE(bottom.expired());
    delete &path;
    EXPECT_TRUE(bottom.expired());
}

TEST_F(CloningNested, ATreeThatDoublesAtEachLevelCostsItsFormsAlone)
{
    const auto clone = Clone(MakeTower(*source, 40, 2));
    EXPECT_EQ(MeasureTower(*clone), 40u);
}

} // namespace
