#include <orv_doc/clone.h>

#include <gtest/gtest.h>

#include <orv_blend/transparency.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/marked_content.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

#include "document_library/orv_doc/model_makers.h"
#include "support/text_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;
using LayerPointer = std::shared_ptr<LayerProperties>;

class Cloning : public testing::Test
{
protected:
    template <typename Object>
    std::unique_ptr<Object> Clone(const Object& object)
    {
        return std::unique_ptr<Object>(object.Clone(strategy));
    }

    std::unique_ptr<Document> source = Document::CreateNew();
    std::unique_ptr<Document> target = Document::CreateNew();
    PageContent& sourceContent = source->AddPage({0, 0, 1, 1}).GetContent();
    PageContent& targetContent = target->AddPage({0, 0, 1, 1}).GetContent();
    CloneStrategy strategy{*target, CloneStrategy::CloneFlags::Full};
};

TEST_F(Cloning, CopiesAllOfAPath)
{
    Path& path = Add(sourceContent, MakePath());
    path.SetName("Line");
    path.SetTransformation(Scaling(2));
    path.SetTransparency(OrvBlend::Transparency::Factory::GetDefault());
    path.SetFillPaint(MakeBlack());
    path.SetStrokePaint(MakeBlack());
    StrokeProperties stroke;
    stroke.width = 5;
    path.SetStrokeProperties(stroke);
    path.SetHalftoneSet(std::make_shared<HalftoneSet>("Round", OrvSys::PdfObject()));
    path.SetClippingObject(true);
    const auto clone = Clone(path);
    EXPECT_EQ(clone->GetName(), "Line");
    EXPECT_EQ(clone->GetTransformation(), Scaling(2));
    EXPECT_EQ(clone->GetTransparency(), path.GetTransparency());
    EXPECT_EQ(clone->GetFillPaint(), path.GetFillPaint());
    EXPECT_EQ(clone->GetStrokePaint(), path.GetStrokePaint());
    EXPECT_EQ(clone->GetSharedStrokeProperties(), path.GetSharedStrokeProperties());
    EXPECT_EQ(clone->GetHalftoneSet(), path.GetHalftoneSet());
    EXPECT_EQ(clone->DefiningCompound(), path.DefiningCompound());
    EXPECT_TRUE(clone->IsClippingObject());
    EXPECT_NE(clone->GetID(), path.GetID());
    EXPECT_EQ(clone->GetContent(), nullptr);
    EXPECT_EQ(clone->GetParentGroup(), nullptr);
}

TEST_F(Cloning, CopiesAllOfPictures)
{
    const auto halftones = std::make_shared<HalftoneSet>("Round", OrvSys::PdfObject());
    Image image(nullptr);
    image.SetName("Photo");
    image.SetTransformation(Scaling(3));
    image.SetHalftoneSet(halftones);
    const auto clone = Clone(image);
    EXPECT_EQ(clone->GetName(), "Photo");
    EXPECT_EQ(clone->GetTransformation(), Scaling(3));
    EXPECT_EQ(clone->GetHalftoneSet(), halftones);
    ImageMask mask(nullptr);
    mask.SetFillPaint(MakeBlack());
    mask.SetHalftoneSet(halftones);
    const auto maskClone = Clone(mask);
    EXPECT_EQ(maskClone->GetFillPaint(), mask.GetFillPaint());
    EXPECT_EQ(maskClone->GetHalftoneSet(), halftones);
}

TEST_F(Cloning, CopiesAllOfAText)
{
    TextCharacter character;
    character.character.code = 65;
    Text text({character}, HarrowSupport::Testing::MakeFont(), 12.5);
    text.SetCharSpacing(1.5);
    text.SetWordSpacing(2.5);
    text.SetTextTransformation(Scaling(2));
    text.SetCharacterTransformations({{1, 0, 0, 1, 7, 8}});
    text.SetStrokePaint(MakeBlack());
    const auto clone = Clone(text);
    EXPECT_EQ(clone->GetText(), text.GetText());
    EXPECT_EQ(clone->GetFont(), text.GetFont());
    EXPECT_EQ(clone->GetSize(), 12.5);
    EXPECT_EQ(clone->GetCharSpacing(), text.GetCharSpacing());
    EXPECT_EQ(clone->GetWordSpacing(), text.GetWordSpacing());
    EXPECT_EQ(clone->GetTextTransformation(), Scaling(2));
    EXPECT_EQ(clone->GetCharacterTransformations(), text.GetCharacterTransformations());
    EXPECT_EQ(clone->GetStrokePaint(), text.GetStrokePaint());
}

TEST_F(Cloning, CopiesAGroupWithItsChildrenInOrder)
{
    Group& group = Add(sourceContent, std::make_unique<Group>(Group::Flags::DefaultUserCreated));
    group.SetName("Outer");
    group.SetTransformation(Scaling(2));
    Add(group, MakePath()).SetName("a");
    TextGroup& inner = Add(group, std::make_unique<TextGroup>());
    inner.SetClippingObject(true);
    inner.SetName("b");
    Add(inner, MakePath()).SetName("c");
    Add(Add(inner, MakeGroup()), MakePath()).SetName("d");
    Add(group, MakePath()).SetName("e");
    const auto clone = Clone(group);
    EXPECT_EQ(clone->GetFlags(), Group::Flags::DefaultUserCreated);
    EXPECT_EQ(clone->GetName(), "Outer");
    EXPECT_EQ(clone->GetTransformation(), Scaling(2));
    ASSERT_EQ(CountObjects(clone->children), 3u);
    EXPECT_EQ(clone->children.first->GetName(), "a");
    EXPECT_EQ(clone->children.last->GetName(), "e");
    const auto* innerClone = dynamic_cast<const TextGroup*>(clone->children.first->next);
    ASSERT_NE(innerClone, nullptr);
    EXPECT_EQ(innerClone->GetName(), "b");
    EXPECT_TRUE(innerClone->IsClippingObject());
    EXPECT_EQ(innerClone->GetParentGroup(), clone.get());
    ASSERT_EQ(CountObjects(innerClone->children), 2u);
    EXPECT_EQ(innerClone->children.first->GetName(), "c");
    const auto* deepest = dynamic_cast<const Group*>(innerClone->children.last);
    ASSERT_NE(deepest, nullptr);
    EXPECT_EQ(deepest->children.first->GetName(), "d");
}

TEST_F(Cloning, ForgetsObjectNumbersOfAnotherDocument)
{
    MarkedContent markedContent;
    markedContent.tag = "Span";
    markedContent.resourceObject = 17;
    Group& group = Add(sourceContent, MakeGroup());
    group.SetMarkedContent(std::make_shared<MarkedContent>(markedContent));
    Group& inner = Add(group, MakeGroup());
    inner.SetMarkedContent(std::make_shared<MarkedContent>(markedContent));
    const auto clone = Clone(group);
    ASSERT_NE(clone->GetMarkedContent(), nullptr);
    EXPECT_EQ(clone->GetMarkedContent()->tag, "Span");
    EXPECT_EQ(clone->GetMarkedContent()->resourceObject, 0);
    EXPECT_EQ(static_cast<const Group*>(clone->children.first)->GetMarkedContent()->resourceObject, 0);
    EXPECT_EQ(group.GetMarkedContent()->resourceObject, 17);

    CloneStrategy within(*source, CloneStrategy::CloneFlags::Full);
    const std::unique_ptr<Group> sibling(group.Clone(within));
    EXPECT_EQ(sibling->GetMarkedContent(), group.GetMarkedContent());
}

TEST_F(Cloning, OfAContentAddsCopiesOnTopInOrder)
{
    Add(targetContent, MakePath()).SetName("below");
    Add(sourceContent, MakePath()).SetName("first");
    Add(sourceContent, MakeGroup()).SetName("second");
    CloneContent(sourceContent, targetContent, strategy);
    ASSERT_EQ(CountObjects(targetContent.GetChildren()), 3u);
    const ContentObject* object = targetContent.GetChildren().first->next;
    EXPECT_EQ(object->GetName(), "first");
    EXPECT_EQ(object->GetContent(), &targetContent);
    EXPECT_EQ(object->next->GetName(), "second");
    EXPECT_EQ(CountObjects(sourceContent.GetChildren()), 2u);
}

TEST_F(Cloning, OfAContentIntoItselfDoublesIt)
{
    Add(sourceContent, MakePath());
    Add(sourceContent, MakeGroup());
    CloneStrategy within(*source, CloneStrategy::CloneFlags::Full);
    CloneContent(sourceContent, sourceContent, within);
    EXPECT_EQ(CountObjects(sourceContent.GetChildren()), 4u);
}

TEST_F(Cloning, LeavesACopyThatOutlivesItsSource)
{
    const LayerPointer layer = source->GetLayers().AddLayer("Cutting");
    Layer& object = Add(sourceContent, std::make_unique<Layer>(layer));
    Path& path = Add(object, MakePath());
    path.SetFillPaint(MakeBlack());
    path.SetTransformation(Scaling(2));
    path.TransformedCompound(nullptr);
    CloneContent(sourceContent, targetContent, strategy);
    source.reset();
    const auto* clone = dynamic_cast<const Layer*>(targetContent.GetChildren().first);
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->GetName(), "Cutting");
    const auto* pathClone = dynamic_cast<const Path*>(clone->children.first);
    ASSERT_NE(pathClone, nullptr);
    EXPECT_EQ(pathClone->TransformedCompound(nullptr)->GetSubpaths().size(), 1u);
    EXPECT_EQ(pathClone->GetFillPaint()->GetType(), OrvPaint::Paint::Type::Flat);
}

class CloningLayers : public Cloning
{
protected:
    LayerPointer GetLayer(const Layer& layer) { return boost::get<LayerPointer>(layer.GetMembership()); }

    Layers& sourceLayers = source->GetLayers();
    Layers& targetLayers = target->GetLayers();
};

TEST_F(CloningLayers, KeepsLayersOfTheSameDocument)
{
    const LayerPointer layer = targetLayers.AddLayer("Cutting");
    EXPECT_EQ(strategy.CloneLayer(layer), layer);
    EXPECT_EQ(strategy.CloneLayer(nullptr), nullptr);
}

TEST_F(CloningLayers, MakesANewLayerAtTheTopOfTheOrder)
{
    targetLayers.AddLayer("Varnish");
    const LayerPointer layer = sourceLayers.AddLayer("Cutting");
    layer->SetProcessingStep("Structural", "Cutting");
    sourceLayers.GetDefaultConfiguration().SetLayerVisible(layer, false);
    sourceLayers.GetDefaultConfiguration().SetLayerPrintState(layer,
                                                              LayerConfiguration::PrintState::Printing);
    const LayerPointer clone = strategy.CloneLayer(layer);
    EXPECT_EQ(&clone->GetDocument(), target.get());
    EXPECT_EQ(clone->GetName(), "Cutting");
    EXPECT_EQ(clone->GetProcessingStepGroup(), "Structural");
    EXPECT_EQ(clone->GetProcessingStepType(), "Cutting");
    const LayerConfiguration& configuration = targetLayers.GetDefaultConfiguration();
    EXPECT_FALSE(configuration.IsLayerVisible(clone));
    EXPECT_EQ(configuration.GetLayerPrintState(clone), LayerConfiguration::PrintState::Printing);
    ASSERT_EQ(targetLayers.GetAllLayers().size(), 2u);
    ASSERT_EQ(configuration.GetOrder().size(), 2u);
    EXPECT_EQ(configuration.GetOrder().back().layer, clone);
}

TEST_F(CloningLayers, ReusesALayerOfEqualProperties)
{
    const LayerPointer there = targetLayers.AddLayer("Cutting");
    EXPECT_EQ(strategy.CloneLayer(sourceLayers.AddLayer("Cutting")), there);
    EXPECT_EQ(targetLayers.GetAllLayers().size(), 1u);
}

TEST_F(CloningLayers, DoesNotReuseALayerOfAnotherName)
{
    const LayerPointer there = targetLayers.AddLayer("cutting");
    EXPECT_NE(strategy.CloneLayer(sourceLayers.AddLayer("Cutting")), there);
}

TEST_F(CloningLayers, DoesNotReuseALayerOfAnotherProcessingStep)
{
    const LayerPointer there = targetLayers.AddLayer("Cutting");
    there->SetProcessingStep("Structural", "Cutting");
    EXPECT_NE(strategy.CloneLayer(sourceLayers.AddLayer("Cutting")), there);
}

TEST_F(CloningLayers, DoesNotReuseALayerThatIsSeenOtherwise)
{
    const LayerPointer there = targetLayers.AddLayer("Cutting");
    targetLayers.GetDefaultConfiguration().SetLayerVisible(there, false);
    EXPECT_NE(strategy.CloneLayer(sourceLayers.AddLayer("Cutting")), there);
}

TEST_F(CloningLayers, DoesNotReuseALayerThatPrintsOtherwise)
{
    const LayerPointer there = targetLayers.AddLayer("Cutting");
    targetLayers.GetDefaultConfiguration().SetLayerPrintState(there,
                                                              LayerConfiguration::PrintState::NotPrinting);
    EXPECT_NE(strategy.CloneLayer(sourceLayers.AddLayer("Cutting")), there);
}

TEST_F(CloningLayers, KeepsTwoEqualLayersApart)
{
    const LayerPointer there = targetLayers.AddLayer("Cutting");
    const LayerPointer first = strategy.CloneLayer(sourceLayers.AddLayer("Cutting"));
    const LayerPointer second = strategy.CloneLayer(sourceLayers.AddLayer("Cutting"));
    EXPECT_EQ(first, there);
    EXPECT_NE(second, there);
    EXPECT_EQ(targetLayers.GetAllLayers().size(), 2u);
}

TEST_F(CloningLayers, GivesObjectsOfOneLayerOneLayer)
{
    const LayerPointer layer = sourceLayers.AddLayer("Cutting");
    Group& group = Add(sourceContent, MakeGroup());
    Add(group, std::make_unique<Layer>(layer));
    Add(group, std::make_unique<Layer>(layer));
    const auto clone = Clone(group);
    const auto& first = static_cast<const Layer&>(*clone->children.first);
    const auto& second = static_cast<const Layer&>(*clone->children.last);
    EXPECT_EQ(GetLayer(first), GetLayer(second));
    EXPECT_EQ(&GetLayer(first)->GetDocument(), target.get());
}

TEST_F(CloningLayers, MapsEveryLayerOfAnExpression)
{
    using Operation = LogicalLayerExpression::Operation;
    const LayerPointer cutting = sourceLayers.AddLayer("Cutting");
    const LogicalLayerExpression layer(cutting);
    const LogicalLayerExpression expression(Operation::And,
                                            {layer, LogicalLayerExpression(Operation::Not, {layer})});
    Layer object(expression);
    object.SetName("both");
    const auto clone = Clone(object);
    EXPECT_EQ(clone->GetName(), "both");
    const auto& copy = boost::get<LogicalLayerExpression>(clone->GetMembership());
    EXPECT_EQ(copy.GetOperation(), Operation::And);
    ASSERT_EQ(copy.GetOperands().size(), 2u);
    const LayerPointer mapped = copy.GetOperands()[0].GetLayer();
    EXPECT_EQ(&mapped->GetDocument(), target.get());
    EXPECT_EQ(copy.GetOperands()[1].GetOperands().front().GetLayer(), mapped);
    EXPECT_EQ(targetLayers.GetAllLayers().size(), 1u);
}

TEST_F(CloningLayers, LeavesTheNameOfTheSourceLayerAlone)
{
    Layer object(sourceLayers.AddLayer("Cutting"));
    const auto clone = Clone(object);
    clone->SetName("Other");
    EXPECT_EQ(object.GetName(), "Cutting");
}

} // namespace
