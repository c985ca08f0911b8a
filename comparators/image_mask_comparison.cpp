#include "image_mask_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareImageMask(ComparisonContext&, DifferenceScope<OrvDoc::ContentObject>&) {}

} // namespace HarrowSupport::Comparators
