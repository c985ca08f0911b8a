#include "soft_mask_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareSoftMask(ComparisonContext&, const OrvBlend::SoftMask&, const OrvBlend::SoftMask&,
                     DifferenceScope<OrvDoc::ContentObject>&)
{}

} // namespace HarrowSupport::Comparators
