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

/// Compares two paints that are tiling patterns. Patterns have no parts that could be read yet, so nothing is
/// compared.
void ComparePattern(ComparisonContext& context, const std::shared_ptr<const OrvPaint::Paint>& left,
                    const std::shared_ptr<const OrvPaint::Paint>& right,
                    DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
