#include <orv_doc/layer_properties.h>

#include <ostream>
#include <utility>

#include <orv_doc/document.h>

#include "orv_doc/text_form.h"

namespace OrvDoc
{

LayerProperties::LayerProperties(const Document& givenDocument, std::string givenName, bool givenIsGroup)
    : document(givenDocument), name(std::move(givenName)), isGroup(givenIsGroup)
{}

void LayerProperties::SetProcessingStep(std::string group, std::string type)
{
    processingStepGroup = std::move(group);
    processingStepType = std::move(type);
}

std::ostream& operator<<(std::ostream& stream, const std::shared_ptr<LayerProperties>& layer)
{
    if (!layer)
        return stream << "(no layer)";
    std::string properties;
    const auto add = [&properties](const std::string& text) {
        properties += properties.empty() ? text : ", " + text;
    };
    if (layer->GetIsGroup())
        add("group");
    if (!layer->GetGroupName().empty()) {
        std::string label = "in ";
        Detail::AppendQuoted(label, layer->GetGroupName());
        add(label);
    }
    const std::string& step = layer->GetProcessingStepGroup();
    const std::string& type = layer->GetProcessingStepType();
    if (!step.empty() || !type.empty())
        add("processing step " + step + "/" + type);
    // Two layers that differ in this alone are told apart by a comparison, so their texts must tell them
    // apart too.
    if (!layer->GetDocument().GetLayers().GetDefaultConfiguration().IsLayerPrinting(layer))
        add("not printing");
    std::string text;
    Detail::AppendQuoted(text, layer->GetName());
    if (!properties.empty())
        text += " (" + properties + ")";
    return stream << text;
}

} // namespace OrvDoc
