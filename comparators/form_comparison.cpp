// Order of steps: whether the pair was met before; separations, transformation, box, external reference,
// scope and unique ID; and the objects last. Whoever asks only whether two forms look alike misses that one
// document shares a form and the other one doesn't.

#include "form_comparison.h"

#include "compare_or_report.h"
#include "comparison_context.h"
#include "content_comparison.h"
#include "external_reference_comparison.h"
#include "paint_comparison.h"
#include "reuse_rule.h"
#include "transformation_equality.h"

#include <orv_doc/content.h>
#include <orv_paint/form_paint.h>

#include <string>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;

/// Unique IDs that are unique in a narrow scope need not be alike; what counts is that each left one goes
/// with one right one and the other way round.
void PairUniqueIds(ComparisonContext& context, const std::string& left, const std::string& right,
                   ObjectScope& scope)
{
    const auto partner = context.formUniqueIds.find(left);
    if (partner != context.formUniqueIds.end() && partner->second != right)
        scope.AddValues("FormUniqueIDReuse", true, false);
    const auto lowestLeft = context.lowestLeftIds.find(right);
    if (lowestLeft != context.lowestLeftIds.end() && lowestLeft->second != left)
        scope.AddValues("FormUniqueIDReuse", false, true);

    if (partner != context.formUniqueIds.end())
        return;
    context.formUniqueIds.emplace(left, right);
    if (lowestLeft == context.lowestLeftIds.end())
        context.lowestLeftIds.emplace(right, left);
    else if (left < lowestLeft->second)
        lowestLeft->second = left;
}

void CompareUniqueIds(ComparisonContext& context, const OrvPaint::FormPaint& left,
                      const OrvPaint::FormPaint& right, ObjectScope& scope)
{
    if (!left.GetScope() || !right.GetScope() || !left.GetUniqueID() || !right.GetUniqueID())
        return;
    if (*left.GetScope() == OrvPaint::FormPaint::Scope::Global)
        CompareOrReport(scope, "FormUniqueID", *left.GetUniqueID(), *right.GetUniqueID());
    else
        PairUniqueIds(context, *left.GetUniqueID(), *right.GetUniqueID(), scope);
}

void CompareParameters(const OrvPaint::FormPaint& left, const OrvPaint::FormPaint& right, ObjectScope& scope)
{
    ComparePaintColorSpace(left, right, scope);
    if (!TransformationsNearlyEqual(left.GetFormTransformation(), right.GetFormTransformation()))
        scope.AddValues("FormTransformation", left.GetFormTransformation(), right.GetFormTransformation());
    if (left.GetFormBBox() != right.GetFormBBox())
        scope.AddValues("FormBoundingBox", left.GetFormBBox(), right.GetFormBBox());
    if (!CompareExternalReferences(left.GetContent().GetDocument(), right.GetContent().GetDocument(),
                                   left.GetExternalReference(), right.GetExternalReference())) {
        scope.AddValues("FormExternalReference", left.GetExternalReference(), right.GetExternalReference());
    }
    if (left.GetScope() != right.GetScope())
        scope.AddValues("FormScope", left.GetScope(), right.GetScope());
}

} // namespace

void CompareForm(ComparisonContext& context, const std::shared_ptr<const OrvPaint::Paint>& leftPaint,
                 const std::shared_ptr<const OrvPaint::Paint>& rightPaint, ObjectScope& scope)
{
    const auto left = std::static_pointer_cast<const OrvPaint::FormPaint>(leftPaint);
    const auto right = std::static_pointer_cast<const OrvPaint::FormPaint>(rightPaint);
    if (WasMetBefore(context.visitedForms, context.formIndex, left, right, "FormReuse", scope))
        return;
    CompareParameters(*left, *right, scope);
    CompareUniqueIds(context, *left, *right, scope);
    CompareContents(context, left->GetContent(), right->GetContent());
}

} // namespace HarrowSupport::Comparators
