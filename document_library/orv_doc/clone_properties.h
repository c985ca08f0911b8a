#pragma once

#include <orv_doc/blendable.h>
#include <orv_doc/logical_layer_expression.h>

namespace OrvDoc::Detail
{

/// Copies what every object has, name, transformation and transparency, into a clone that stands in no
/// container.
void CopyObjectProperties(const Blendable& source, Blendable& clone, CloneStrategy& strategy);

/// The same expression over the layers of the strategy's document.
LogicalLayerExpression CloneExpression(const LogicalLayerExpression& source, CloneStrategy& strategy);

} // namespace OrvDoc::Detail
