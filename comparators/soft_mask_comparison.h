#pragma once

#include "difference_scope.h"

namespace OrvBlend
{
class SoftMask;
}

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares two soft masks. Soft masks have no parts that could be read yet, so nothing is compared.
void CompareSoftMask(ComparisonContext& context, const OrvBlend::SoftMask& left,
                     const OrvBlend::SoftMask& right, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
