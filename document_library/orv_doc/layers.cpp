#include <orv_doc/layers.h>

#include <orv_doc/layer_properties.h>

namespace OrvDoc
{

Layers::Layers(const Document& givenDocument) : document(givenDocument) {}

std::shared_ptr<LayerProperties> Layers::AddLayer(const std::string& name)
{
    std::shared_ptr<LayerProperties> layer = AddUnorderedLayer(name);
    defaultConfiguration.order.push_back({layer, {}});
    return layer;
}

std::shared_ptr<LayerProperties> Layers::AddUnorderedLayer(const std::string& name)
{
    return layers.emplace_back(std::make_shared<LayerProperties>(document, name, false));
}

std::shared_ptr<LayerProperties> Layers::CreateGroup(const std::string& label) const
{
    return std::make_shared<LayerProperties>(document, label, true);
}

} // namespace OrvDoc
