#pragma once

#include <memory>
#include <string>
#include <vector>

#include <orv_doc/layer_configuration.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

class Document;
class LayerProperties;

/// The layers of a document.
class ORV_EXPORT Layers
{
public:
    /// All layers in order of their making. Labelled groups of a configuration are not among them.
    const std::vector<std::shared_ptr<LayerProperties>>& GetAllLayers() const { return layers; }
    const LayerConfiguration& GetDefaultConfiguration() const { return defaultConfiguration; }
    /// Makes a new layer, also if one of that name exists, and puts it last at the top of the default
    /// configuration's tree; it is seen and prints.
    std::shared_ptr<LayerProperties> AddLayer(const std::string& name);

    // For makers of documents.

    explicit Layers(const Document& document);
    Layers(const Layers&) = delete;
    Layers& operator=(const Layers&) = delete;

    LayerConfiguration& GetDefaultConfiguration() { return defaultConfiguration; }
    /// Makes a new layer that is in no tree.
    std::shared_ptr<LayerProperties> AddUnorderedLayer(const std::string& name);
    /// Makes a labelled group, which counts as no layer and has a place in a tree only.
    std::shared_ptr<LayerProperties> CreateGroup(const std::string& label) const;

private:
    const Document& document;
    std::vector<std::shared_ptr<LayerProperties>> layers;
    LayerConfiguration defaultConfiguration;
};

} // namespace OrvDoc
