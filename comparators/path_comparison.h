#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace Plexa
{
class Compound;
class Subpath;
} // namespace Plexa

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares the shapes of a pair of paths in their final position: the winding rule, then the outline. A
/// different outline is told by the shapes as they were given, so that a path which was only moved is told by
/// its position.
void ComparePath(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

/// Whether two shapes have subpaths that are equal by position. The winding rule takes no part.
bool CompareCompounds(const Plexa::Compound& left, const Plexa::Compound& right);

/// Whether two subpaths have the same kinds of segments, with points that are closer than 30 milli-points. A
/// closing segment that one side states and the other implies is a difference.
bool CompareSubpaths(const Plexa::Subpath& left, const Plexa::Subpath& right);

} // namespace HarrowSupport::Comparators
