#include "orv_doc/clone_properties.h"

#include <vector>

#include <orv_doc/clone.h>
#include <orv_doc/strokable.h>

namespace OrvDoc
{

namespace Detail
{

void CopyObjectProperties(const Blendable& source, Blendable& clone, CloneStrategy& strategy)
{
    // The object's own name: that of a layer belongs to the layer.
    const std::string& name = source.ContentObject::GetName();
    if (!name.empty())
        clone.ContentObject::SetName(name);
    clone.SetTransformation(source.GetTransformation());
    clone.SetTransparency(strategy.CloneTransparency(source.GetTransparency()));
}

LogicalLayerExpression CloneExpression(const LogicalLayerExpression& source, CloneStrategy& strategy)
{
    if (source.GetOperation() == LogicalLayerExpression::Operation::Layer)
        return LogicalLayerExpression(strategy.CloneLayer(source.GetLayer()));
    std::vector<LogicalLayerExpression> operands;
    operands.reserve(source.GetOperands().size());
    for (const LogicalLayerExpression& operand : source.GetOperands())
        operands.push_back(CloneExpression(operand, strategy));
    return LogicalLayerExpression(source.GetOperation(), std::move(operands));
}

} // namespace Detail

void Fillable::CloneFillableInto(Fillable& clone, CloneStrategy& strategy) const
{
    Detail::CopyObjectProperties(*this, clone, strategy);
    clone.fillPaint = strategy.ClonePaint(fillPaint);
    clone.halftoneSet = halftoneSet;
}

void Strokable::CloneStrokableInto(Strokable& clone, CloneStrategy& strategy) const
{
    CloneFillableInto(clone, strategy);
    clone.strokePaint = strategy.ClonePaint(strokePaint);
    clone.strokeProperties = strokeProperties;
}

} // namespace OrvDoc
