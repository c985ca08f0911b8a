#include <orv_doc/layer_order_visitor.h>

namespace OrvDoc
{

LayerOrderVisitor::~LayerOrderVisitor() = default;

} // namespace OrvDoc
