#include "form_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareForm(ComparisonContext&, const std::shared_ptr<const OrvPaint::Paint>&,
                 const std::shared_ptr<const OrvPaint::Paint>&, DifferenceScope<OrvDoc::ContentObject>&)
{}

} // namespace HarrowSupport::Comparators
