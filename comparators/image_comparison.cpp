#include "image_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareImage(ComparisonContext&, DifferenceScope<OrvDoc::ContentObject>&) {}

} // namespace HarrowSupport::Comparators
