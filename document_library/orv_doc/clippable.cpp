#include <orv_doc/clippable.h>

namespace OrvDoc
{

void Clippable::ClippingObjectChangedSelf() {}

} // namespace OrvDoc
