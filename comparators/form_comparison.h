#pragma once

#include "difference_scope.h"

#include <memory>

namespace OrvDoc
{
class ContentObject;
}

namespace OrvPaint
{
class Paint;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares two paints that are forms, with their objects. A pair that was met before is done, which also
/// ends the walk of a form that holds itself; a paint that comes with another partner than before is a
/// difference of its own, and compared in full.
void CompareForm(ComparisonContext& context, const std::shared_ptr<const OrvPaint::Paint>& left,
                 const std::shared_ptr<const OrvPaint::Paint>& right,
                 DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
