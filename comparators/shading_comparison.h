#pragma once

#include "difference_scope.h"
#include "mapping_comparison.h"

#include <orv_color/component.h>

#include <boost/optional.hpp>

#include <utility>
#include <vector>

namespace OrvDoc
{
class ContentObject;
}

namespace OrvPaint
{
class AxialShadingPaint;
class RadialShadingPaint;
class ShadingPaint;
} // namespace OrvPaint

namespace HarrowSupport::Comparators
{

/// Compares what shadings of every kind have. The result tells which component on the left stands for the
/// same separation as which one on the right. It is absent if the separations can't be lined up; background
/// and function have no common form then and are not compared.
boost::optional<std::vector<ComponentPair>>
CompareShadingCommon(const OrvPaint::ShadingPaint& left, const OrvPaint::ShadingPaint& right,
                     DifferenceScope<OrvDoc::ContentObject>& scope);

void CompareAxialShading(const OrvPaint::AxialShadingPaint& left, const OrvPaint::AxialShadingPaint& right,
                         DifferenceScope<OrvDoc::ContentObject>& scope);

void CompareRadialShading(const OrvPaint::RadialShadingPaint& left, const OrvPaint::RadialShadingPaint& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope);

using Background = std::vector<OrvColor::Component>;

/// The backgrounds of both sides in the order of the pairs, of equal length, with zero for a component that a
/// side doesn't have.
std::pair<Background, Background> LineUpBackgrounds(const std::vector<ComponentPair>& pairs,
                                                    const Background& left, const Background& right);

} // namespace HarrowSupport::Comparators
