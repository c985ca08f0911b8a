#pragma once

#include "difference_scope.h"

namespace OrvDoc
{
class Document;
class Page;
} // namespace OrvDoc

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares what belongs to two documents as a whole, and then their pages in step. Ends at different page
/// counts, and after a page whose contents could not be compared to their end.
void CompareDocuments(ComparisonContext& context, const OrvDoc::Document& left,
                      const OrvDoc::Document& right);

/// Compares the five boxes of two pages, edge by edge. A box that was never set is compared by its numbers
/// too.
void ComparePageBoxes(ComparisonContext& context, DifferenceScope<OrvDoc::Page>& scope,
                      const OrvDoc::Page& left, const OrvDoc::Page& right);

} // namespace HarrowSupport::Comparators
