// Order of steps: transparency field by field, soft mask last; clipping role; absolute position; name. No
// difference ends the comparison early.

#include "object_properties_comparison.h"

#include "color_equality.h"
#include "compare_or_report.h"
#include "comparison_context.h"
#include "soft_mask_comparison.h"

#include <orv_blend/blend_mode.h>
#include <orv_blend/transparency.h>
#include <orv_doc/blendable.h>
#include <orv_doc/fillable.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/transformable.h>
#include <plexa/geometry.h>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using SoftMaskPointer = std::shared_ptr<const OrvBlend::SoftMask>;
using MilliPoints = Plexa::MilliPointCoordinateSystem;

/// How far two positions may be apart, in milli-points.
constexpr double positionTolerance = 0.01;
constexpr double milliPointsInAPoint = 1000.0;

/// Null if the object has no transparency, or is of a class that can't have one.
const OrvBlend::Transparency* OwnTransparency(const OrvDoc::ContentObject& object,
                                              const ObjectClass& objectClass)
{
    return objectClass.isBlendable ? static_cast<const OrvDoc::Blendable&>(object).GetTransparency().get()
                                   : nullptr;
}

const OrvBlend::Transparency* EffectiveTransparency(const OrvDoc::ContentObject& object,
                                                    const ObjectClass& objectClass)
{
    const OrvBlend::Transparency* own = OwnTransparency(object, objectClass);
    if (own != nullptr || !objectClass.isTextGroup)
        return own;
    return OrvBlend::Transparency::Factory::GetDefault().get();
}

/// A pair that was compared without a word is silent each time, since all that its drawings refer to is known
/// by then: many objects in one soft mask walk its drawing once. With dumps a walk may be seen even if it is
/// silent.
void CompareSoftMasks(ComparisonContext& context, const SoftMaskPointer& left, const SoftMaskPointer& right,
                      ObjectScope& scope)
{
    if (context.settledSoftMasks.count({left, right}) != 0)
        return;
    const std::uint64_t reportsBefore = context.reporter.GetCount();
    const std::size_t differencesBefore = scope.differences.size();
    CompareSoftMask(context, *left, *right, scope);
    const bool silent = context.reporter.GetCount() == reportsBefore &&
                        scope.differences.size() == differencesBefore && context.options.dumpLevel == 0;
    if (silent)
        context.settledSoftMasks.emplace(left, right);
}

void CompareTransparencies(ComparisonContext& context, const OrvBlend::Transparency& left,
                           const OrvBlend::Transparency& right, ObjectScope& scope)
{
    if (left.blendMode != right.blendMode)
        scope.AddValues("ObjectBlendMode", left.blendMode, right.blendMode);
    if (!ComponentsMatch(left.fillAlpha, right.fillAlpha))
        scope.AddValues("ObjectFillAlpha", left.fillAlpha, right.fillAlpha);
    if (!ComponentsMatch(left.strokeAlpha, right.strokeAlpha))
        scope.AddValues("ObjectStrokeAlpha", left.strokeAlpha, right.strokeAlpha);
    if (left.alphaIsShape != right.alphaIsShape)
        scope.AddValues("ObjectAlphaIsShape", left.alphaIsShape, right.alphaIsShape);
    if (left.isolated != right.isolated)
        scope.AddValues("GroupIsIsolated", left.isolated, right.isolated);
    if (left.knockout != right.knockout)
        scope.AddValues("GroupIsKnockout", left.knockout, right.knockout);

    const bool leftMasked = left.softMask != nullptr;
    const bool rightMasked = right.softMask != nullptr;
    if (leftMasked && rightMasked)
        CompareSoftMasks(context, left.softMask, right.softMask, scope);
    else if (leftMasked != rightMasked)
        scope.AddValues("ObjectHasSoftMask", leftMasked, rightMasked);
}

bool HavePositionsToCompare(ComparisonContext& context, const ObjectScope& scope)
{
    const ObjectClass leftClass = context.objectClasses.Of(*scope.left);
    const ObjectClass rightClass = context.objectClasses.Of(*scope.right);
    if (!leftClass.isTransformable || !rightClass.isTransformable)
        return false;
    if (leftClass.isPlainGroup != rightClass.isPlainGroup)
        return false;
    return !leftClass.isPlainGroup || (OwnTransparency(*scope.left, leftClass) != nullptr &&
                                       OwnTransparency(*scope.right, rightClass) != nullptr);
}

/// Where the transformation takes the point (1, 1), in points. Only this one is looked at: two
/// transformations that agree on it have the same position, whatever else differs between them.
Plexa::PointBase<MilliPoints> ImageOfOne(const Plexa::TransformationBase<MilliPoints>& transformation)
{
    return {transformation.a + transformation.c + transformation.x.value / milliPointsInAPoint,
            transformation.b + transformation.d + transformation.y.value / milliPointsInAPoint};
}

bool PositionsMatch(const Plexa::TransformationBase<MilliPoints>& left,
                    const Plexa::TransformationBase<MilliPoints>& right)
{
    const Plexa::PointBase<MilliPoints> leftImage = ImageOfOne(left);
    const Plexa::PointBase<MilliPoints> rightImage = ImageOfOne(right);
    const Plexa::PointBase<MilliPoints> offset((leftImage.x.value - rightImage.x.value) * milliPointsInAPoint,
                                               (leftImage.y.value - rightImage.y.value) *
                                                   milliPointsInAPoint);
    // Most pairs lie at one and the same place, whose distance needs no root. Infinite places have none:
    // their offset is no number.
    const bool isZero = offset.x.value == 0.0 && offset.y.value == 0.0;
    return isZero || positionTolerance > Plexa::GetLength(offset).value;
}

template <typename Object>
void CompareHalftoneSetsOf(const Object& left, const Object& right, ObjectScope& scope)
{
    const std::shared_ptr<OrvDoc::HalftoneSet>& leftSet = left.GetHalftoneSet();
    const std::shared_ptr<OrvDoc::HalftoneSet>& rightSet = right.GetHalftoneSet();
    const bool leftPresent = leftSet != nullptr;
    const bool rightPresent = rightSet != nullptr;
    if (leftPresent && rightPresent) {
        CompareOrReport(scope, "HalftoneSetName", leftSet->GetName(), rightSet->GetName());
        if (!(*leftSet == *rightSet))
            scope.AddValues("HalftoneSet", *leftSet, *rightSet);
    } else if (leftPresent != rightPresent)
        scope.AddValues("ObjectHalftoneSet", leftPresent, rightPresent);
}

} // namespace

void CompareObjectBlending(ComparisonContext& context, ObjectScope& scope)
{
    const OrvBlend::Transparency* left =
        EffectiveTransparency(*scope.left, context.objectClasses.Of(*scope.left));
    const OrvBlend::Transparency* right =
        EffectiveTransparency(*scope.right, context.objectClasses.Of(*scope.right));
    const bool leftPresent = left != nullptr;
    const bool rightPresent = right != nullptr;
    if (leftPresent && rightPresent)
        CompareTransparencies(context, *left, *right, scope);
    else if (leftPresent != rightPresent)
        scope.AddValues("ObjectHasTransparency", leftPresent, rightPresent);
    CompareObjectCommon(context, scope);
}

void CompareObjectCommon(ComparisonContext& context, ObjectScope& scope)
{
    const bool leftClips = scope.left->IsClippingObject();
    const bool rightClips = scope.right->IsClippingObject();
    if (leftClips != rightClips)
        scope.AddValues("ObjectIsClipping", leftClips, rightClips);

    if (HavePositionsToCompare(context, scope)) {
        const Plexa::TransformationBase<MilliPoints> left =
            OrvDoc::GetAbsoluteTransformation(static_cast<const OrvDoc::Transformable&>(*scope.left));
        const Plexa::TransformationBase<MilliPoints> right =
            OrvDoc::GetAbsoluteTransformation(static_cast<const OrvDoc::Transformable&>(*scope.right));
        if (!PositionsMatch(left, right))
            scope.AddValues("ObjectAbsoluteTransformation", left, right);
    }

    CompareOrReport(scope, "ObjectName", scope.left->GetName(), scope.right->GetName());
}

void CompareHalftoneSet(const OrvDoc::Fillable& left, const OrvDoc::Fillable& right, ObjectScope& scope)
{
    CompareHalftoneSetsOf(left, right, scope);
}

void CompareHalftoneSet(const OrvDoc::Image& left, const OrvDoc::Image& right, ObjectScope& scope)
{
    CompareHalftoneSetsOf(left, right, scope);
}

} // namespace HarrowSupport::Comparators
