#include <orv_doc/clone.h>

#include <algorithm>
#include <vector>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/layer_properties.h>

#include "orv_doc/nested_clones.h"

namespace OrvDoc
{

namespace
{

using LayerPointer = std::shared_ptr<LayerProperties>;

bool HaveEqualProperties(const LayerPointer& left, const LayerPointer& right)
{
    const LayerConfiguration& leftConfiguration = left->GetDocument().GetLayers().GetDefaultConfiguration();
    const LayerConfiguration& rightConfiguration = right->GetDocument().GetLayers().GetDefaultConfiguration();
    return left->GetName() == right->GetName() &&
           left->GetProcessingStepGroup() == right->GetProcessingStepGroup() &&
           left->GetProcessingStepType() == right->GetProcessingStepType() &&
           leftConfiguration.IsLayerVisible(left) == rightConfiguration.IsLayerVisible(right) &&
           leftConfiguration.GetLayerPrintState(left) == rightConfiguration.GetLayerPrintState(right);
}

LayerPointer CopyLayer(const LayerPointer& layer, Layers& target)
{
    const LayerConfiguration& configuration = layer->GetDocument().GetLayers().GetDefaultConfiguration();
    LayerPointer copy = target.AddLayer(layer->GetName());
    copy->SetProcessingStep(layer->GetProcessingStepGroup(), layer->GetProcessingStepType());
    target.GetDefaultConfiguration().SetLayerVisible(copy, configuration.IsLayerVisible(layer));
    target.GetDefaultConfiguration().SetLayerPrintState(copy, configuration.GetLayerPrintState(layer));
    return copy;
}

} // namespace

CloneStrategy::CloneStrategy(Document& givenTarget, CloneFlags givenFlags)
    : target(givenTarget), flags(givenFlags), nested(std::make_unique<Detail::NestedClones>(*this))
{}

CloneStrategy::~CloneStrategy() = default;

LayerPointer CloneStrategy::CloneLayer(const LayerPointer& layer)
{
    if (!layer || &layer->GetDocument() == &target)
        return layer;
    LayerPointer& clone = layers[layer.get()];
    if (clone)
        return clone;
    // Two layers of a source stay two, even if nothing tells them apart.
    const auto isTaken = [this](const LayerPointer& candidate) {
        return std::any_of(layers.begin(), layers.end(),
                           [&](const auto& entry) { return entry.second == candidate; });
    };
    for (const LayerPointer& candidate : target.GetLayers().GetAllLayers()) {
        if (HaveEqualProperties(layer, candidate) && !isTaken(candidate))
            return clone = candidate;
    }
    return clone = CopyLayer(layer, target.GetLayers());
}

std::shared_ptr<const OrvPaint::Paint>
CloneStrategy::ClonePaint(const std::shared_ptr<const OrvPaint::Paint>& paint)
{
    return nested->ClonePaint(paint);
}

std::shared_ptr<const OrvBlend::Transparency>
CloneStrategy::CloneTransparency(const std::shared_ptr<const OrvBlend::Transparency>& transparency)
{
    return nested->CloneTransparency(transparency);
}

void CloneContent(const Content& source, Content& destination, CloneStrategy& strategy)
{
    // All copies are made before the first one is added: source and destination may be the same, and a
    // failure leaves the destination as it was.
    std::vector<std::unique_ptr<ContentObject>> copies;
    for (const ContentObject* object = source.GetChildren().first; object; object = object->next)
        copies.emplace_back(object->Clone(strategy));
    for (std::unique_ptr<ContentObject>& copy : copies) {
        destination.AddOnTop(copy.get());
        copy.release();
    }
}

} // namespace OrvDoc
