#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class ContentObject;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares what a pair of texts has beyond its paints: font, size, spacings, transformations and outlines.
/// Boxes of fonts and places of characters may differ by half a point, outlines as those of paths. What is
/// told of different outlines are the characters and the outlines as the font has them, so that a text which
/// was only placed elsewhere is told by its place.
void CompareText(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
