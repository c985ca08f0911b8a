#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
class Fillable;
class Image;
} // namespace OrvDoc

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares what objects of any class have: transparency with its soft mask, then what CompareObjectCommon
/// looks at. A text group without a transparency counts as having the default one; any other object has none
/// then.
void CompareObjectBlending(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

/// Compares clipping role, absolute position and name. Positions are told apart by where they take the one
/// point (1, 1); a plain group has a position worth comparing only where both sides are blended as a whole.
void CompareObjectCommon(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

/// Compares the halftones of two objects: their names, and the sets as a whole.
void CompareHalftoneSet(const OrvDoc::Fillable& left, const OrvDoc::Fillable& right,
                        DifferenceScope<OrvDoc::ContentObject>& scope);
void CompareHalftoneSet(const OrvDoc::Image& left, const OrvDoc::Image& right,
                        DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
