#pragma once

namespace OrvDoc
{
class Layers;
}

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares the number of layers of two documents and the layer trees of their default configurations. A tree
/// that is the complete mirror of the other, at every level, is told as a tolerated variation.
void CompareLayers(ComparisonContext& context, const OrvDoc::Layers& left, const OrvDoc::Layers& right);

} // namespace HarrowSupport::Comparators
