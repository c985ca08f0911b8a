#include "text_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareText(ComparisonContext&, DifferenceScope<OrvDoc::ContentObject>&) {}

} // namespace HarrowSupport::Comparators
