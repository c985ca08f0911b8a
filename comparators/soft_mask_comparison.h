#pragma once

#include "difference_scope.h"

#include <plexa/coordinate_systems.h>
#include <plexa/transformation.h>

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

/// Compares two soft masks with all objects of their drawings. Transfer functions are told apart by identity:
/// two function objects differ even if they compute the same. While the drawings are compared, the soft mask
/// depth of the context is one higher.
void CompareSoftMask(ComparisonContext& context, const OrvBlend::SoftMask& left,
                     const OrvBlend::SoftMask& right, DifferenceScope<OrvDoc::ContentObject>& scope);

/// Whether two transformations of soft masks are the same. Each of the four matrix numbers may be off by
/// 1e-16 times the smaller of the two absolute determinants, so none by anything if either matrix is
/// singular; the translations may be off by less than the tolerance of coordinates.
bool SoftMaskTransformationsEqual(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& left,
                                  const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& right);

} // namespace HarrowSupport::Comparators
