#include "shading_comparison.h"

namespace HarrowSupport::Comparators
{

void CompareShadingCommon(const OrvPaint::Paint&, const OrvPaint::Paint&,
                          DifferenceScope<OrvDoc::ContentObject>&)
{}

void CompareAxialShading(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                         DifferenceScope<OrvDoc::ContentObject>& scope)
{
    CompareShadingCommon(left, right, scope);
}

void CompareRadialShading(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope)
{
    CompareShadingCommon(left, right, scope);
}

} // namespace HarrowSupport::Comparators
