#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <orv_doc/layer_configuration.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

using Node = OrvDoc::LayerConfiguration::Node;

/// A layer tree to be made: names with sublayers.
struct Tree
{
    std::string name;
    std::vector<Tree> children;
};

std::vector<Node> MakeNodes(OrvDoc::Layers& layers, const std::vector<Tree>& trees)
{
    std::vector<Node> nodes;
    for (const Tree& tree : trees)
        nodes.push_back({layers.AddUnorderedLayer(tree.name), MakeNodes(layers, tree.children)});
    return nodes;
}

std::unique_ptr<OrvDoc::Document> WithLayers(const std::vector<Tree>& trees)
{
    auto document = NewDocument();
    OrvDoc::Layers& layers = document->GetLayers();
    layers.GetDefaultConfiguration().SetOrder(MakeNodes(layers, trees));
    return document;
}

void PrintNodes(std::ostream& stream, const std::vector<Node>& nodes, std::size_t depth)
{
    for (const Node& node : nodes) {
        stream << std::string(2 * depth, ' ') << node.layer << "\n";
        PrintNodes(stream, node.children, depth + 1);
    }
}

/// The text of a tree: the line of the nameless root, then the layers below it.
std::string TreeText(const OrvDoc::Document& document)
{
    std::ostringstream stream;
    stream << std::shared_ptr<OrvDoc::LayerProperties>() << "\n";
    PrintNodes(stream, document.GetLayers().GetDefaultConfiguration().GetOrder(), 1);
    return stream.str();
}

std::string Versus(const OrvDoc::Document& left, const OrvDoc::Document& right)
{
    return "\n'\n" + TreeText(left) + "'\nversus\n'\n" + TreeText(right) + "'";
}

void ExpectBothWays(const OrvDoc::Document& left, const OrvDoc::Document& right, const std::string& label)
{
    ExpectReports(left, right, {{label + ": " + Versus(left, right), label + ": " + Versus(right, left)}});
}

} // namespace

TEST(CompareLayers, DocumentsWithoutLayersAreEqual)
{
    ExpectReports(*NewDocument(), *NewDocument(), {});
}

TEST(CompareLayers, EqualTreesAreEqual)
{
    const std::vector<Tree> trees = {{"print", {{"cut", {}}, {"fold", {}}}}, {"notes", {}}};
    ExpectReports(*WithLayers(trees), *WithLayers(trees), {});
}

TEST(CompareLayers, AnotherNumberOfLayersWithTheSameTreeGivesTheCountAlone)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    left->GetLayers().AddUnorderedLayer("hidden from the tree");
    ExpectReports(*left, *right, {Difference("LayerCount")});
}

TEST(CompareLayers, CountAndTreeAreBothReported)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, *WithLayers({{"cut", {}}}), *NewDocument(), AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("LayerCount", "LayerConfiguration"));
}

TEST(CompareLayers, AnotherNameIsADifferenceThatShowsBothTrees)
{
    ExpectBothWays(*WithLayers({{"print", {{"cut", {}}}}}), *WithLayers({{"print", {{"fold", {}}}}}),
                   "LayerConfiguration");
}

TEST(CompareLayers, OrderReversedAtEveryLevelIsTolerated)
{
    const auto left = WithLayers({{"a", {{"a1", {}}, {"a2", {}}}}, {"b", {}}, {"c", {}}});
    const auto right = WithLayers({{"c", {}}, {"b", {}}, {"a", {{"a2", {}}, {"a1", {}}}}});
    ExpectBothWays(*left, *right, "(tolerated) LayerConfigurationReverse");
}

TEST(CompareLayers, OrderReversedAtTheTopAloneIsADifference)
{
    const auto left = WithLayers({{"a", {{"a1", {}}, {"a2", {}}}}, {"b", {}}});
    const auto right = WithLayers({{"b", {}}, {"a", {{"a1", {}}, {"a2", {}}}}});
    ExpectBothWays(*left, *right, "LayerConfiguration");
}

TEST(CompareLayers, OrderReversedAtTheTopIsAMirrorIfTheSublayersAreTheirOwn)
{
    const auto left = WithLayers({{"a", {{"same", {}}, {"same", {}}}}, {"b", {}}});
    const auto right = WithLayers({{"b", {}}, {"a", {{"same", {}}, {"same", {}}}}});
    ExpectBothWays(*left, *right, "(tolerated) LayerConfigurationReverse");
}

TEST(CompareLayers, ASingleLayerIsItsOwnMirrorAndGivesNoReport)
{
    ExpectReports(*WithLayers({{"cut", {}}}), *WithLayers({{"cut", {}}}), {});
}

TEST(CompareLayers, TwoEqualLayersAreTheirOwnMirrorAndGiveNoReport)
{
    ExpectReports(*WithLayers({{"cut", {}}, {"cut", {}}}), *WithLayers({{"cut", {}}, {"cut", {}}}), {});
}

TEST(CompareLayers, ASublayerOnOneSideIsADifference)
{
    ExpectBothWays(*WithLayers({{"a", {}}, {"b", {}}}), *WithLayers({{"a", {{"b", {}}}}}),
                   "LayerConfiguration");
}

TEST(CompareLayers, BeingPrintedCounts)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    OrvDoc::LayerConfiguration& configuration = right->GetLayers().GetDefaultConfiguration();
    const std::shared_ptr<OrvDoc::LayerProperties> layer = configuration.GetOrder().front().layer;
    configuration.SetLayerPrintState(layer, OrvDoc::LayerConfiguration::PrintState::NotPrinting);
    ExpectBothWays(*left, *right, "LayerConfiguration");
}

TEST(CompareLayers, BeingSeenDoesNotCountWhereThePrintingStateSaysOtherwise)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    OrvDoc::LayerConfiguration& configuration = right->GetLayers().GetDefaultConfiguration();
    const std::shared_ptr<OrvDoc::LayerProperties> layer = configuration.GetOrder().front().layer;
    configuration.SetLayerVisible(layer, false);
    configuration.SetLayerPrintState(layer, OrvDoc::LayerConfiguration::PrintState::Printing);
    ExpectReports(*left, *right, {});
}

TEST(CompareLayers, ProcessingStepTypeAloneCounts)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    const auto layerOf = [](OrvDoc::Document& document) {
        return document.GetLayers().GetDefaultConfiguration().GetOrder().front().layer;
    };
    layerOf(*left)->SetProcessingStep("Structural", "Cutting");
    layerOf(*right)->SetProcessingStep("Structural", "Folding");
    ExpectBothWays(*left, *right, "LayerConfiguration");
}

TEST(CompareLayers, ProcessingStepGroupAloneCounts)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    const auto layerOf = [](OrvDoc::Document& document) {
        return document.GetLayers().GetDefaultConfiguration().GetOrder().front().layer;
    };
    layerOf(*left)->SetProcessingStep("Structural", "Cutting");
    layerOf(*right)->SetProcessingStep("Positions", "Cutting");
    ExpectBothWays(*left, *right, "LayerConfiguration");
}

TEST(CompareLayers, BeingALabelledGroupCounts)
{
    const auto left = WithLayers({{"cut", {}}});
    const auto right = WithLayers({{"cut", {}}});
    OrvDoc::Layers& layers = right->GetLayers();
    layers.GetDefaultConfiguration().SetOrder({{layers.CreateGroup("cut"), {}}});
    ExpectBothWays(*left, *right, "LayerConfiguration");
}

TEST(CompareLayers, TheLabelOfTheGroupAroundALayerCounts)
{
    const auto withGroup = [](const std::string& label) {
        auto document = NewDocument();
        OrvDoc::Layers& layers = document->GetLayers();
        const std::shared_ptr<OrvDoc::LayerProperties> group = layers.CreateGroup(label);
        layers.GetDefaultConfiguration().SetOrder({{group, {{layers.AddUnorderedLayer("cut"), {}}}}});
        // The layer keeps the label that it was ordered under.
        group->SetName("Dies");
        return document;
    };
    ExpectBothWays(*withGroup("Dies"), *withGroup("Embossing"), "LayerConfiguration");
    ExpectReports(*withGroup("Dies"), *withGroup("Dies"), {});
}

TEST(CompareLayers, LayersAreReportedWithEmptyPaths)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, *WithLayers({{"cut", {}}}), *NewDocument(), AllOptions());
    for (const RecordedReport& report : reporter.GetReports()) {
        EXPECT_TRUE(report.left.empty()) << report.label;
        EXPECT_TRUE(report.right.empty()) << report.label;
    }
}

} // namespace HarrowSupport::Testing
