// Order of steps: transformation, backdrop, alpha or luminosity, transfer function, and the drawing last. The
// drawing's differences are reported as they are found, and so before those of the mask itself.

#include "soft_mask_comparison.h"

#include "compare_or_report.h"
#include "comparison_context.h"
#include "content_comparison.h"
#include "coordinate_equality.h"

#include <orv_blend/soft_mask.h>
#include <orv_doc/content.h>

#include <cmath>

namespace HarrowSupport::Comparators
{

namespace
{

using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

/// How far the numbers of two matrices may be apart, as a share of the smaller determinant.
constexpr double matrixTolerance = 1e-16;

double AbsoluteDeterminant(const Transformation& transformation)
{
    return std::fabs(transformation.a * transformation.d - transformation.b * transformation.c);
}

} // namespace

void CompareSoftMask(ComparisonContext& context, const OrvBlend::SoftMask& left,
                     const OrvBlend::SoftMask& right, DifferenceScope<OrvDoc::ContentObject>& scope)
{
    if (!SoftMaskTransformationsEqual(left.GetTransformation(), right.GetTransformation()))
        scope.AddValues("SoftMaskTransformation", left.GetTransformation(), right.GetTransformation());
    CompareOrReport(scope, "SoftMaskBackdropColor", left.GetBackdropColor(), right.GetBackdropColor());
    if (left.IsAlpha() != right.IsAlpha())
        scope.AddValues("SoftMaskAlpha", left.IsAlpha(), right.IsAlpha());
    // Variants are equal if they hold the same alternative and equal values; functions are held as pointers,
    // and so equal only if they are one object.
    if (!(left.GetTransferFunction() == right.GetTransferFunction())) {
        scope.AddValues("SoftMaskTransferFunction", left.GetTransferFunction(), right.GetTransferFunction());
    }
    ++context.softMaskDepth;
    CompareContents(context, left.GetContent(), right.GetContent());
    --context.softMaskDepth;
}

bool SoftMaskTransformationsEqual(const Transformation& left, const Transformation& right)
{
    // Both determinants are asked instead of their minimum, so that one that is no number makes a difference
    // on either side.
    const double leftTolerance = matrixTolerance * AbsoluteDeterminant(left);
    const double rightTolerance = matrixTolerance * AbsoluteDeterminant(right);
    const auto matches = [leftTolerance, rightTolerance](double one, double other) {
        const double difference = std::fabs(one - other);
        return leftTolerance >= difference && rightTolerance >= difference;
    };
    return matches(left.a, right.a) && matches(left.b, right.b) && matches(left.c, right.c) &&
           matches(left.d, right.d) && CoordinatesMatch(left.x.value, right.x.value) &&
           CoordinatesMatch(left.y.value, right.y.value);
}

} // namespace HarrowSupport::Comparators
