#include <orv_doc/visitable.h>

namespace OrvDoc
{

Visitable::~Visitable() = default;

void Visitable::PropagateVisitorSelf(ConstVisitorBase&) const {}

void Visitable::PropagateVisitorSelf(VisitorBase&) {}

} // namespace OrvDoc
