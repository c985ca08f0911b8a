// Order of steps: separations, transformation, bounding box, the mapping of the components, background; then
// the geometry of the kind, and the function last. The mapping decides how backgrounds and functions are
// lined up: comparing them by position would call two shadings different that name their separations in
// another order.

#include "shading_comparison.h"

#include "color_equality.h"
#include "coordinate_equality.h"
#include "function_comparison.h"
#include "paint_comparison.h"
#include "transformation_equality.h"

#include <orv_color/color_policies.h>
#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/shading_paint.h>

#include <algorithm>
#include <cstddef>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using Pairs = std::vector<ComponentPair>;
using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;

constexpr double milliPointsInAPoint = 1000.0;

/// The extent is the difference of the edges in milli-points, so that these are rounded once each.
Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>
InMilliPoints(const Plexa::RectangleBase<Plexa::PdfCoordinateSystem>& box)
{
    const double left = box.origin.x.value * milliPointsInAPoint;
    const double bottom = box.origin.y.value * milliPointsInAPoint;
    const double right = (box.origin.x.value + box.size.width.value) * milliPointsInAPoint;
    const double top = (box.origin.y.value + box.size.height.value) * milliPointsInAPoint;
    return {{left, bottom}, {right - left, top - bottom}, box.isInitial};
}

OrvColor::Component ComponentOf(const Background& background, std::size_t index)
{
    return index < background.size() ? background[index] : OrvColor::Component(0.0f);
}

void CompareBackgrounds(const Pairs& pairs, const OrvPaint::ShadingPaint& left,
                        const OrvPaint::ShadingPaint& right, ObjectScope& scope)
{
    const boost::optional<Background>& leftBackground = left.GetBackground();
    const boost::optional<Background>& rightBackground = right.GetBackground();
    if (leftBackground.has_value() != rightBackground.has_value()) {
        scope.AddValues("ShadingPaintBackgroundDefined", leftBackground.has_value(),
                        rightBackground.has_value());
        return;
    }
    if (!leftBackground)
        return;
    const auto [leftLinedUp, rightLinedUp] = LineUpBackgrounds(pairs, *leftBackground, *rightBackground);
    if (!std::equal(leftLinedUp.begin(), leftLinedUp.end(), rightLinedUp.begin(), ComponentsMatch))
        scope.AddValues("ShadingPaintBackground", leftLinedUp, rightLinedUp);
}

bool PointPairsMatch(const std::pair<Point, Point>& left, const std::pair<Point, Point>& right)
{
    return PointsMatch(left.first, right.first) && PointsMatch(left.second, right.second);
}

/// What axial and radial shadings have in common.
template <typename Shading>
void CompareCourse(const boost::optional<Pairs>& pairs, const Shading& left, const Shading& right,
                   ObjectScope& scope)
{
    if (left.GetExtends() != right.GetExtends())
        scope.AddValues("ShadingPaintExtends", left.GetExtends(), right.GetExtends());
    if (pairs && !CompareFunctions(*pairs, *left.GetFunction(), *right.GetFunction()))
        scope.AddValues("ShadingPaintFunction", *left.GetFunction(), *right.GetFunction());
}

} // namespace

boost::optional<Pairs> CompareShadingCommon(const OrvPaint::ShadingPaint& left,
                                            const OrvPaint::ShadingPaint& right, ObjectScope& scope)
{
    ComparePaintColorSpace(left, right, scope);
    if (!TransformationsNearlyEqual(left.GetTransformation(), right.GetTransformation()))
        scope.AddValues("PaintTransformation", left.GetTransformation(), right.GetTransformation());
    if (!AllEdgesMatch(InMilliPoints(left.GetBoundingBox()), InMilliPoints(right.GetBoundingBox())))
        scope.AddValues("ShadingPaintBoundingBox", left.GetBoundingBox(), right.GetBoundingBox());
    boost::optional<Pairs> pairs =
        CompareSeparationMappings(left.GetSeparationMapping(), right.GetSeparationMapping(), scope);
    if (pairs)
        CompareBackgrounds(*pairs, left, right, scope);
    return pairs;
}

void CompareAxialShading(const OrvPaint::AxialShadingPaint& left, const OrvPaint::AxialShadingPaint& right,
                         ObjectScope& scope)
{
    const boost::optional<Pairs> pairs = CompareShadingCommon(left, right, scope);
    if (!PointPairsMatch(left.GetPoints(), right.GetPoints()))
        scope.AddValues("AxialShadingPaintPoints", left.GetPoints(), right.GetPoints());
    CompareCourse(pairs, left, right, scope);
}

void CompareRadialShading(const OrvPaint::RadialShadingPaint& left, const OrvPaint::RadialShadingPaint& right,
                          ObjectScope& scope)
{
    const boost::optional<Pairs> pairs = CompareShadingCommon(left, right, scope);
    if (!PointPairsMatch(left.GetCenters(), right.GetCenters()))
        scope.AddValues("RadialShadingPaintCenters", left.GetCenters(), right.GetCenters());
    if (!EdgesMatch(left.GetRadii().first.value, right.GetRadii().first.value) ||
        !EdgesMatch(left.GetRadii().second.value, right.GetRadii().second.value))
        scope.AddValues("RadialShadingPaintRadii", left.GetRadii(), right.GetRadii());
    CompareCourse(pairs, left, right, scope);
}

std::pair<Background, Background> LineUpBackgrounds(const Pairs& pairs, const Background& left,
                                                    const Background& right)
{
    std::pair<Background, Background> result;
    result.first.reserve(pairs.size());
    result.second.reserve(pairs.size());
    for (const ComponentPair& pair : pairs) {
        result.first.push_back(ComponentOf(left, pair.first));
        result.second.push_back(ComponentOf(right, pair.second));
    }
    return result;
}

} // namespace HarrowSupport::Comparators
