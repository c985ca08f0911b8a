// Order of steps: whether the pair was met before; separations, transformation, colour, clip and step of the
// cell; whether the cells were met before, if asked for; and the cell last. Whoever asks only whether two
// patterns look alike misses that one document shares a pattern and the other one doesn't.

#include "pattern_comparison.h"

#include "compare_or_report.h"
#include "comparison_context.h"
#include "content_comparison.h"
#include "paint_comparison.h"
#include "reuse_rule.h"
#include "transformation_equality.h"

#include <orv_doc/content.h>
#include <orv_paint/pattern_paint.h>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;

void CompareParameters(const OrvPaint::PatternPaint& left, const OrvPaint::PatternPaint& right,
                       ObjectScope& scope)
{
    ComparePaintColorSpace(left, right, scope);
    if (!TransformationsNearlyEqual(left.GetTransformation(), right.GetTransformation()))
        scope.AddValues("PaintTransformation", left.GetTransformation(), right.GetTransformation());
    const bool leftColored = left.GetColor().has_value();
    const bool rightColored = right.GetColor().has_value();
    if (leftColored != rightColored)
        scope.AddValues("PatternPaintIsUncolored", leftColored, rightColored);
    if (leftColored && rightColored)
        CompareOrReport(scope, "PaintColor", *left.GetColor(), *right.GetColor());
    if (left.GetCellClip() != right.GetCellClip())
        scope.AddValues("PatternPaintBoundingBox", left.GetCellClip(), right.GetCellClip());
    if (left.GetStep() != right.GetStep())
        scope.AddValues("PatternPaintStep", left.GetStep(), right.GetStep());
}

} // namespace

void ComparePattern(ComparisonContext& context, const std::shared_ptr<const OrvPaint::Paint>& leftPaint,
                    const std::shared_ptr<const OrvPaint::Paint>& rightPaint, ObjectScope& scope)
{
    const auto left = std::static_pointer_cast<const OrvPaint::PatternPaint>(leftPaint);
    const auto right = std::static_pointer_cast<const OrvPaint::PatternPaint>(rightPaint);
    if (WasMetBefore(context.visitedPatterns, context.patternIndex, left, right, "PatternPaintReuse", scope))
        return;
    CompareParameters(*left, *right, scope);
    const OrvDoc::Content& leftContent = left->GetContent();
    const OrvDoc::Content& rightContent = right->GetContent();
    if (context.options.comparePatternContentReuse &&
        WasMetBefore(context.visitedPatternContents, context.patternContentIndex, leftContent.GetID(),
                     rightContent.GetID(), "PatternPaintContentReuse", scope))
        return;
    CompareContents(context, leftContent, rightContent);
}

} // namespace HarrowSupport::Comparators
