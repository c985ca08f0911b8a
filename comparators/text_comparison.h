#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares what a pair of texts has beyond its paints: font, size, spacings, characters, positions and
/// outlines. Fonts have no parts that could be read yet, so nothing is compared.
void CompareText(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
