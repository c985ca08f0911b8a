// Order of steps: the kinds have to be the same; a flat paint is then compared by its separations and its
// colour, any other by the file of its kind.

#include "paint_comparison.h"

#include "compare_or_report.h"
#include "comparison_context.h"
#include "entry_search.h"
#include "form_comparison.h"
#include "pattern_comparison.h"
#include "shading_comparison.h"
#include "work_counters.h"

#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/flat_paint.h>
#include <orv_paint/paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/shading_paint.h>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;

bool ColorantsEqual(const Colorants& left, const Colorants& right)
{
    if (left.all != right.all || left.overprint != right.overprint)
        return false;
    if (left.all)
        return true;
    return EachHasAPartner(left.entries, right.entries,
                           [](const auto& one, const auto& other) { return one.name == other.name; });
}

void CompareFlatPaint(ComparisonContext& context, const PaintPointer& left, const PaintPointer& right,
                      ObjectScope& scope)
{
    if (context.equalFlatPaints.Knows(left, right))
        return;
    ++workCounters.paintsCompared;
    const std::size_t differencesBefore = scope.differences.size();
    ComparePaintColorSpace(*left, *right, scope);
    CompareOrReport(scope, "PaintColor", static_cast<const OrvPaint::FlatPaint&>(*left).GetColor(),
                    static_cast<const OrvPaint::FlatPaint&>(*right).GetColor());
    if (scope.differences.size() == differencesBefore)
        context.equalFlatPaints.Remember(left, right);
}

} // namespace

void ComparePaint(ComparisonContext& context, const PaintPointer& left, const PaintPointer& right,
                  ObjectScope& scope)
{
    if (left->GetType() != right->GetType()) {
        scope.AddValues("PaintType", left->GetType(), right->GetType());
        return;
    }
    switch (left->GetType()) {
    case OrvPaint::Paint::Type::Flat:
        CompareFlatPaint(context, left, right, scope);
        break;
    case OrvPaint::Paint::Type::AxialShading:
        CompareAxialShading(static_cast<const OrvPaint::AxialShadingPaint&>(*left),
                            static_cast<const OrvPaint::AxialShadingPaint&>(*right), scope);
        break;
    case OrvPaint::Paint::Type::RadialShading:
        CompareRadialShading(static_cast<const OrvPaint::RadialShadingPaint&>(*left),
                             static_cast<const OrvPaint::RadialShadingPaint&>(*right), scope);
        break;
    case OrvPaint::Paint::Type::OtherShading:
        CompareShadingCommon(static_cast<const OrvPaint::ShadingPaint&>(*left),
                             static_cast<const OrvPaint::ShadingPaint&>(*right), scope);
        break;
    case OrvPaint::Paint::Type::TilingPattern:
        ComparePattern(context, left, right, scope);
        break;
    case OrvPaint::Paint::Type::Form:
        CompareForm(context, left, right, scope);
        break;
    }
}

void ComparePaintColorSpace(const OrvPaint::Paint& left, const OrvPaint::Paint& right, ObjectScope& scope)
{
    const Colorants leftColorants = left.GetColorants();
    const Colorants rightColorants = right.GetColorants();
    if (!ColorantsEqual(leftColorants, rightColorants))
        scope.AddValues("PaintColorSpace", leftColorants, rightColorants);
}

} // namespace HarrowSupport::Comparators
