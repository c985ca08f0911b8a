#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares the pictures of a pair of images. Pictures have no parts that could be read yet, so nothing is
/// compared.
void CompareImage(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
