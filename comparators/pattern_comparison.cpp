#include "pattern_comparison.h"

namespace HarrowSupport::Comparators
{

void ComparePattern(ComparisonContext&, const std::shared_ptr<const OrvPaint::Paint>&,
                    const std::shared_ptr<const OrvPaint::Paint>&, DifferenceScope<OrvDoc::ContentObject>&)
{}

} // namespace HarrowSupport::Comparators
