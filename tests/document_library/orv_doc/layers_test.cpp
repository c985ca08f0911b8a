#include <orv_doc/layers.h>

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

#include <orv_doc/layer.h>
#include <orv_doc/layer_order_visitor.h>
#include <orv_doc/layer_properties.h>

#include "document_library/orv_doc/model_makers.h"

namespace
{

using namespace ModelTests;
using namespace OrvDoc;
using LayerPointer = std::shared_ptr<LayerProperties>;
using Node = LayerConfiguration::Node;
using PrintState = LayerConfiguration::PrintState;

template <typename Value>
std::string Print(const Value& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

class OrderRecorder : public LayerOrderVisitor
{
public:
    bool VisitLayer(const LayerPointer& layer) override
    {
        walk += layer->GetName() + " ";
        return layer->GetName() != pruned;
    }
    void EndVisitLayer(const LayerPointer& layer) override { walk += "/" + layer->GetName() + " "; }

    std::string pruned;
    std::string walk;
};

class LayerTest : public testing::Test
{
protected:
    std::string GetWalk(const std::string& pruned = "")
    {
        OrderRecorder recorder;
        recorder.pruned = pruned;
        configuration.Accept(recorder);
        return recorder.walk;
    }

    std::unique_ptr<Document> document = Document::CreateNew();
    Layers& layers = document->GetLayers();
    LayerConfiguration& configuration = layers.GetDefaultConfiguration();
};

TEST_F(LayerTest, ADocumentHasNoneAtFirst)
{
    EXPECT_TRUE(layers.GetAllLayers().empty());
    EXPECT_EQ(GetWalk(), "");
}

TEST_F(LayerTest, AddedLayersStandAtTheTopInOrder)
{
    const LayerPointer first = layers.AddLayer("a");
    const LayerPointer second = layers.AddLayer("b");
    EXPECT_EQ(layers.GetAllLayers(), (std::vector<LayerPointer>{first, second}));
    EXPECT_EQ(GetWalk(), "a /a b /b ");
    EXPECT_EQ(&first->GetDocument(), document.get());
    EXPECT_FALSE(first->GetIsGroup());
    EXPECT_TRUE(configuration.IsLayerVisible(first));
    EXPECT_TRUE(configuration.IsLayerPrinting(first));
}

TEST_F(LayerTest, OneNameCanBelongToTwoLayers)
{
    EXPECT_NE(layers.AddLayer("a"), layers.AddLayer("a"));
    EXPECT_EQ(layers.GetAllLayers().size(), 2u);
}

TEST_F(LayerTest, UnorderedLayersStandInNoTree)
{
    layers.AddUnorderedLayer("a");
    EXPECT_EQ(layers.GetAllLayers().size(), 1u);
    EXPECT_EQ(GetWalk(), "");
}

TEST_F(LayerTest, LabelledGroupsAreNoLayers)
{
    const LayerPointer group = layers.CreateGroup("Dies");
    EXPECT_TRUE(group->GetIsGroup());
    EXPECT_EQ(group->GetName(), "Dies");
    EXPECT_TRUE(layers.GetAllLayers().empty());
}

TEST_F(LayerTest, TheOrderIsWalkedFromTheTop)
{
    const LayerPointer a = layers.AddUnorderedLayer("a");
    const LayerPointer b = layers.AddUnorderedLayer("b");
    const LayerPointer c = layers.AddUnorderedLayer("c");
    configuration.SetOrder({{a, {{b, {}}}}, {c, {}}});
    EXPECT_EQ(GetWalk(), "a b /b /a c /c ");
    EXPECT_EQ(GetWalk("a"), "a /a c /c ") << "sublayers follow only if the visit returned true";
}

TEST_F(LayerTest, LayersKnowTheNearestGroupAroundThem)
{
    const LayerPointer a = layers.AddUnorderedLayer("a");
    const LayerPointer b = layers.AddUnorderedLayer("b");
    const LayerPointer c = layers.AddUnorderedLayer("c");
    const LayerPointer d = layers.AddUnorderedLayer("d");
    const LayerPointer outer = layers.CreateGroup("Outer");
    const LayerPointer inner = layers.CreateGroup("Inner");
    configuration.SetOrder({{outer, {{a, {{b, {}}}}, {inner, {{c, {}}}}}}, {d, {}}});
    EXPECT_EQ(outer->GetGroupName(), "");
    EXPECT_EQ(a->GetGroupName(), "Outer");
    EXPECT_EQ(b->GetGroupName(), "Outer");
    EXPECT_EQ(inner->GetGroupName(), "Outer");
    EXPECT_EQ(c->GetGroupName(), "Inner");
    EXPECT_EQ(d->GetGroupName(), "");
}

TEST_F(LayerTest, LayersForgetAGroupThatTheyAreTakenOutOf)
{
    const LayerPointer a = layers.AddUnorderedLayer("a");
    configuration.SetOrder({{layers.CreateGroup("Dies"), {{a, {}}}}});
    configuration.SetOrder({});
    EXPECT_EQ(a->GetGroupName(), "");
}

Node MakeChain(const LayerPointer& layer, int levels)
{
    Node node{layer, {}};
    while (--levels)
        node = Node{layer, {node}};
    return node;
}

TEST_F(LayerTest, TheOrderHasAtMostAHundredLevels)
{
    const LayerPointer a = layers.AddUnorderedLayer("a");
    EXPECT_NO_THROW(configuration.SetOrder({MakeChain(a, 100)}));
    EXPECT_THROW(configuration.SetOrder({MakeChain(a, 101)}), std::invalid_argument);
    EXPECT_EQ(configuration.GetOrder().size(), 1u) << "a refused order changes nothing";
}

TEST_F(LayerTest, TheOrderHoldsNoNullPointer)
{
    const LayerPointer a = layers.AddLayer("a");
    EXPECT_THROW(configuration.SetOrder({{nullptr, {}}}), std::invalid_argument);
    EXPECT_THROW(configuration.SetOrder({{a, {{nullptr, {}}}}}), std::invalid_argument);
    EXPECT_EQ(GetWalk(), "a /a ");
}

TEST_F(LayerTest, PrintsAsItIsSeenUnlessItSaysOtherwise)
{
    const LayerPointer a = layers.AddLayer("a");
    const auto isPrinting = [&](bool visible, PrintState state) {
        configuration.SetLayerVisible(a, visible);
        configuration.SetLayerPrintState(a, state);
        return configuration.IsLayerPrinting(a);
    };
    EXPECT_TRUE(isPrinting(true, PrintState::AsSeen));
    EXPECT_FALSE(isPrinting(false, PrintState::AsSeen));
    EXPECT_TRUE(isPrinting(true, PrintState::Printing));
    EXPECT_TRUE(isPrinting(false, PrintState::Printing));
    EXPECT_FALSE(isPrinting(true, PrintState::NotPrinting));
    EXPECT_FALSE(isPrinting(false, PrintState::NotPrinting));
    EXPECT_FALSE(configuration.IsLayerVisible(a));
    EXPECT_EQ(configuration.GetLayerPrintState(a), PrintState::NotPrinting);
}

TEST_F(LayerTest, ALayerThatTheConfigurationDoesNotKnowPrints)
{
    const auto other = Document::CreateNew();
    EXPECT_TRUE(configuration.IsLayerPrinting(other->GetLayers().AddLayer("a")));
    EXPECT_TRUE(configuration.IsLayerPrinting(nullptr));
}

TEST_F(LayerTest, PrintsInOneLine)
{
    const LayerPointer a = layers.AddLayer("The \"a\"");
    EXPECT_EQ(Print(a), "\"The \\\"a\\\"\"");
    a->SetProcessingStep("Structural", "Cutting");
    const LayerPointer group = layers.CreateGroup("Dies");
    configuration.SetOrder({{group, {{a, {}}}}});
    EXPECT_EQ(Print(a), "\"The \\\"a\\\"\" (in \"Dies\", processing step Structural/Cutting)");
    EXPECT_EQ(Print(group), "\"Dies\" (group)");
    EXPECT_EQ(Print(LayerPointer()), "(no layer)");
}

TEST_F(LayerTest, ALayerThatDoesNotPrintSaysSo)
{
    const LayerPointer a = layers.AddLayer("a");
    configuration.SetLayerPrintState(a, LayerConfiguration::PrintState::NotPrinting);
    EXPECT_EQ(Print(a), "\"a\" (not printing)");
}

TEST_F(LayerTest, AnObjectRenamesItsLayerForAll)
{
    const LayerPointer a = layers.AddLayer("a");
    PageContent& content = document->AddPage({0, 0, 1, 1}).GetContent();
    Layer& first = Add(content, std::make_unique<Layer>(a));
    Layer& second = Add(content, std::make_unique<Layer>(a));
    const std::uint64_t before = content.GetRevision();
    first.SetName("b");
    EXPECT_EQ(a->GetName(), "b");
    EXPECT_EQ(second.GetName(), "b");
    EXPECT_EQ(second.ContentObject::GetName(), "");
    EXPECT_GT(content.GetRevision(), before);
}

TEST_F(LayerTest, AnObjectOfAnExpressionHasANameOfItsOwn)
{
    const LayerPointer a = layers.AddLayer("a");
    Layer object{LogicalLayerExpression(a)};
    EXPECT_EQ(object.GetName(), "");
    object.SetName("b");
    EXPECT_EQ(object.GetName(), "b");
    EXPECT_EQ(a->GetName(), "a");
}

using Operation = LogicalLayerExpression::Operation;

TEST_F(LayerTest, AnExpressionOfNothingRestrictsNothing)
{
    const LogicalLayerExpression expression;
    EXPECT_EQ(expression.GetOperation(), Operation::AnyOn);
    EXPECT_TRUE(expression.GetOperands().empty());
    EXPECT_EQ(Print(expression), "AnyOn()");
}

TEST_F(LayerTest, AnExpressionPrintsItsOperations)
{
    const LogicalLayerExpression a(layers.AddLayer("a"));
    const LogicalLayerExpression b(layers.AddLayer("b"));
    EXPECT_EQ(Print(a), "\"a\"");
    EXPECT_EQ(Print(LogicalLayerExpression(Operation::And, {a, LogicalLayerExpression(Operation::Not, {b})})),
              "And(\"a\", Not(\"b\"))");
    EXPECT_EQ(Print(LogicalLayerExpression(Operation::AllOff, {a, b})), "AllOff(\"a\", \"b\")");
}

TEST_F(LayerTest, ExpressionsAreEqualWithTheSameOperationsOnTheSameLayers)
{
    const LogicalLayerExpression a(layers.AddLayer("a"));
    const LogicalLayerExpression b(layers.AddLayer("a"));
    EXPECT_TRUE(a == LogicalLayerExpression(a.GetLayer()));
    EXPECT_FALSE(a == b);
    EXPECT_TRUE(LogicalLayerExpression(Operation::Or, {a, b}) ==
                LogicalLayerExpression(Operation::Or, {a, b}));
    EXPECT_FALSE(LogicalLayerExpression(Operation::Or, {a, b}) ==
                 LogicalLayerExpression(Operation::Or, {b, a}));
    EXPECT_FALSE(LogicalLayerExpression(Operation::Or, {a, b}) ==
                 LogicalLayerExpression(Operation::And, {a, b}));
}

TEST_F(LayerTest, AnExpressionRefusesWhatHasNoMeaning)
{
    const LogicalLayerExpression a(layers.AddLayer("a"));
    const LogicalLayerExpression both(Operation::And, {a, a});
    EXPECT_THROW(LogicalLayerExpression{LayerPointer()}, std::invalid_argument);
    EXPECT_THROW(LogicalLayerExpression(Operation::Not, {}), std::invalid_argument);
    EXPECT_THROW(LogicalLayerExpression(Operation::Not, {a, a}), std::invalid_argument);
    EXPECT_THROW(LogicalLayerExpression(Operation::Layer, {a}), std::invalid_argument);
    EXPECT_THROW(LogicalLayerExpression(Operation::AnyOn, {a, both}), std::invalid_argument);
    EXPECT_NO_THROW(LogicalLayerExpression(Operation::Or, {a, both}));
}

TEST_F(LayerTest, AnExpressionHasAtMostAHundredLevels)
{
    LogicalLayerExpression expression(layers.AddLayer("a"));
    for (int level = 1; level < 100; ++level)
        expression = LogicalLayerExpression(Operation::Not, {expression});
    EXPECT_EQ(expression.GetDepth(), 100u);
    EXPECT_THROW(LogicalLayerExpression(Operation::Not, {expression}), std::invalid_argument);
}

} // namespace
