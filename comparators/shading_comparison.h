#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace OrvPaint
{
class Paint;
}

/// Comparison of shadings. They have no parts that could be read yet, so nothing is compared.
namespace HarrowSupport::Comparators
{

/// What shadings of every kind have.
void CompareShadingCommon(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope);

void CompareAxialShading(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                         DifferenceScope<OrvDoc::ContentObject>& scope);

void CompareRadialShading(const OrvPaint::Paint& left, const OrvPaint::Paint& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
