#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

#include <orv_sys/export.h>

namespace OrvDoc
{

class LayerOrderVisitor;
class LayerProperties;

/// The tree in which layers are shown, and which of them are seen and printed (an optional content
/// configuration, ISO 32000-1, 8.11.4.3).
class ORV_EXPORT LayerConfiguration
{
public:
    /// Walks the layer tree from the top: `VisitLayer`, then the sublayers in order, then `EndVisitLayer`.
    void Accept(LayerOrderVisitor& visitor) const;
    /// Whether the layer prints: as its printing state says, and if it has none, whether it is seen. A layer
    /// that the configuration doesn't know prints.
    bool IsLayerPrinting(const std::shared_ptr<LayerProperties>& layer) const;

    // For makers of documents.

    /// A layer with its sublayers.
    struct Node
    {
        std::shared_ptr<LayerProperties> layer;
        std::vector<Node> children;
    };

    /// What a layer does when the page is printed.
    enum class PrintState : std::uint32_t
    {
        AsSeen,
        Printing,
        NotPrinting,
    };

    const std::vector<Node>& GetOrder() const { return order; }
    /// Replaces the tree, and tells each layer in it the label of the group that it stands in. Throws
    /// `std::invalid_argument` for a null layer and past 100 levels, which no file of a person needs.
    void SetOrder(std::vector<Node> nodes);
    /// Layers are seen unless they were hidden.
    bool IsLayerVisible(const std::shared_ptr<LayerProperties>& layer) const;
    void SetLayerVisible(const std::shared_ptr<LayerProperties>& layer, bool visible);
    PrintState GetLayerPrintState(const std::shared_ptr<LayerProperties>& layer) const;
    void SetLayerPrintState(const std::shared_ptr<LayerProperties>& layer, PrintState state);

private:
    friend class Layers;

    struct State
    {
        bool visible = true;
        PrintState print = PrintState::AsSeen;
    };

    std::vector<Node> order;
    std::map<const LayerProperties*, State>
        states; // Only looked up by pointer, never walked: no order leaks out.
};

} // namespace OrvDoc
