// Order of steps: number of layers; the two trees as they are; only if these differ, the left tree against
// the mirror of the right one, to tell a reversed order apart from any other difference.

#include "layer_comparison.h"

#include "comparison_context.h"
#include "text_stream.h"

#include <orv_doc/document.h>
#include <orv_doc/layer_configuration.h>
#include <orv_doc/layer_order_visitor.h>
#include <orv_doc/layer_properties.h>
#include <orv_doc/layers.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace HarrowSupport::Comparators
{

namespace
{

/// A layer with its sublayers in the order of the configuration. The layer is null in the root alone.
struct ConfigurationNode
{
    std::shared_ptr<OrvDoc::LayerProperties> layer;
    std::vector<ConfigurationNode> children;
};

/// The tree of a configuration, built at construction.
class ConfigurationTree : public OrvDoc::LayerOrderVisitor
{
public:
    explicit ConfigurationTree(const OrvDoc::LayerConfiguration& configuration)
    {
        path.push_back(&root);
        configuration.Accept(*this);
        path.pop_back();
    }

    const ConfigurationNode& GetRoot() const { return root; }

    bool VisitLayer(const std::shared_ptr<OrvDoc::LayerProperties>& layer) override
    {
        // The pointers in the path stay good: the children of a node grow only while none of them is open.
        std::vector<ConfigurationNode>& siblings = path.back()->children;
        siblings.push_back({layer, {}});
        path.push_back(&siblings.back());
        return true;
    }

    void EndVisitLayer(const std::shared_ptr<OrvDoc::LayerProperties>&) override { path.pop_back(); }

private:
    ConfigurationNode root;
    std::deque<ConfigurationNode*> path;
};

bool IsPrinting(const std::shared_ptr<OrvDoc::LayerProperties>& layer)
{
    return layer->GetDocument().GetLayers().GetDefaultConfiguration().IsLayerPrinting(layer);
}

bool LayerPropertiesEqual(const std::shared_ptr<OrvDoc::LayerProperties>& left,
                          const std::shared_ptr<OrvDoc::LayerProperties>& right)
{
    return left->GetName() == right->GetName() && left->GetGroupName() == right->GetGroupName() &&
           left->GetIsGroup() == right->GetIsGroup() &&
           left->GetProcessingStepGroup() == right->GetProcessingStepGroup() &&
           left->GetProcessingStepType() == right->GetProcessingStepType() &&
           IsPrinting(left) == IsPrinting(right);
}

bool TreesEqual(const ConfigurationNode& left, const ConfigurationNode& right, bool reverse)
{
    if (left.layer != nullptr && right.layer != nullptr && !LayerPropertiesEqual(left.layer, right.layer))
        return false;
    const std::size_t count = left.children.size();
    if (count != right.children.size())
        return false;
    for (std::size_t i = 0; i < count; ++i) {
        if (!TreesEqual(left.children[i], right.children[reverse ? count - 1 - i : i], reverse))
            return false;
    }
    return true;
}

std::ostream& PrintTree(std::ostream& stream, const ConfigurationNode& node, std::uint64_t depth)
{
    stream << std::string(2 * depth, ' ') << node.layer << "\n";
    for (const ConfigurationNode& child : node.children)
        PrintTree(stream, child, depth + 1);
    return stream;
}

} // namespace

void CompareLayers(ComparisonContext& context, const OrvDoc::Layers& left, const OrvDoc::Layers& right)
{
    if (left.GetAllLayers().size() != right.GetAllLayers().size()) {
        context.reporter.Report(ReportKind::Difference, "LayerCount", LocationPath(), LocationPath(),
                                std::string());
    }

    const ConfigurationTree leftTree(left.GetDefaultConfiguration());
    const ConfigurationTree rightTree(right.GetDefaultConfiguration());
    if (TreesEqual(leftTree.GetRoot(), rightTree.GetRoot(), false))
        return;

    TextStream text;
    text << "\n'\n";
    PrintTree(text, leftTree.GetRoot(), 0);
    text << "'\nversus\n'\n";
    PrintTree(text, rightTree.GetRoot(), 0);
    text << "'";
    if (TreesEqual(leftTree.GetRoot(), rightTree.GetRoot(), true)) {
        context.reporter.Report(ReportKind::ToleratedVariation, "LayerConfigurationReverse", LocationPath(),
                                LocationPath(), text.str());
    } else {
        context.reporter.Report(ReportKind::Difference, "LayerConfiguration", LocationPath(), LocationPath(),
                                text.str());
    }
}

} // namespace HarrowSupport::Comparators
