#include <orv_doc/layer_configuration.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <utility>

#include <orv_doc/layer_order_visitor.h>
#include <orv_doc/layer_properties.h>

namespace OrvDoc
{

namespace
{

using Nodes = std::vector<LayerConfiguration::Node>;

constexpr std::size_t maxLevels = 100;

void CheckOrder(const Nodes& nodes, std::size_t level)
{
    if (!nodes.empty() && level > maxLevels)
        throw std::invalid_argument("The order of layers can't have more than " + std::to_string(maxLevels) +
                                    " levels.");
    for (const LayerConfiguration::Node& node : nodes) {
        if (!node.layer)
            throw std::invalid_argument("The order of layers can't hold a null pointer in place of a layer.");
        CheckOrder(node.children, level + 1);
    }
}

/// `setLabel` receives each layer with the label of the nearest group around it.
template <typename SetLabel>
void LabelOrder(const Nodes& nodes, const std::string& label, SetLabel setLabel)
{
    for (const LayerConfiguration::Node& node : nodes) {
        setLabel(*node.layer, label);
        LabelOrder(node.children, node.layer->GetIsGroup() ? node.layer->GetName() : label, setLabel);
    }
}

void VisitOrder(const Nodes& nodes, LayerOrderVisitor& visitor)
{
    for (const LayerConfiguration::Node& node : nodes) {
        if (visitor.VisitLayer(node.layer))
            VisitOrder(node.children, visitor);
        visitor.EndVisitLayer(node.layer);
    }
}

} // namespace

void LayerConfiguration::Accept(LayerOrderVisitor& visitor) const
{
    VisitOrder(order, visitor);
}

bool LayerConfiguration::IsLayerPrinting(const std::shared_ptr<LayerProperties>& layer) const
{
    const auto found = states.find(layer.get());
    if (found == states.end())
        return true;
    const State& state = found->second;
    return state.print == PrintState::AsSeen ? state.visible : state.print == PrintState::Printing;
}

void LayerConfiguration::SetOrder(std::vector<Node> nodes)
{
    CheckOrder(nodes, 1);
    const std::string noLabel;
    LabelOrder(order, noLabel, [](LayerProperties& layer, const std::string&) { layer.groupName.clear(); });
    LabelOrder(nodes, noLabel,
               [](LayerProperties& layer, const std::string& label) { layer.groupName = label; });
    order = std::move(nodes);
}

bool LayerConfiguration::IsLayerVisible(const std::shared_ptr<LayerProperties>& layer) const
{
    const auto found = states.find(layer.get());
    return found == states.end() || found->second.visible;
}

void LayerConfiguration::SetLayerVisible(const std::shared_ptr<LayerProperties>& layer, bool visible)
{
    states[layer.get()].visible = visible;
}

LayerConfiguration::PrintState
LayerConfiguration::GetLayerPrintState(const std::shared_ptr<LayerProperties>& layer) const
{
    const auto found = states.find(layer.get());
    return found == states.end() ? PrintState::AsSeen : found->second.print;
}

void LayerConfiguration::SetLayerPrintState(const std::shared_ptr<LayerProperties>& layer, PrintState state)
{
    states[layer.get()].print = state;
}

} // namespace OrvDoc
