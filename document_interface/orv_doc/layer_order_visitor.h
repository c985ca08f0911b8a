#pragma once

#include <memory>

#include <orv_sys/export.h>

namespace OrvDoc
{

class LayerProperties;

/// Receives the layers of a configuration in their order.
class ORV_EXPORT LayerOrderVisitor
{
public:
    LayerOrderVisitor() = default;
    virtual ~LayerOrderVisitor();

    /// Called for each layer; its sublayers follow if this returned true.
    virtual bool VisitLayer(const std::shared_ptr<LayerProperties>& layer) = 0;
    /// Called at the end of each layer, after its sublayers.
    virtual void EndVisitLayer(const std::shared_ptr<LayerProperties>& layer) = 0;
};

} // namespace OrvDoc
