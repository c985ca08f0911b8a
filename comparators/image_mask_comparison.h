#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares the picture data of a pair of image masks. Picture data have no parts that could be read yet, so
/// nothing is compared.
void CompareImageMask(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
