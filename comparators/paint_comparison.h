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

/// Compares two paints, neither of them null, by their kind. Paints of two kinds have nothing else to
/// compare.
void ComparePaint(ComparisonContext& context, const std::shared_ptr<const OrvPaint::Paint>& left,
                  const std::shared_ptr<const OrvPaint::Paint>& right,
                  DifferenceScope<OrvDoc::ContentObject>& scope);

/// Compares the names of the separations that two paints use, in any order, with the all and the overprint
/// flag.
void ComparePaintColorSpace(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                            DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
