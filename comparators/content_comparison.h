#pragma once

#include "difference_scope.h"

#include <orv_doc/detail_list.h>

namespace OrvDoc
{
class Content;
class ContentObject;
} // namespace OrvDoc

namespace HarrowSupport::Comparators
{

struct ComparisonContext;

/// Compares two contents with all their objects, and reports the header of the contents after the objects.
/// Returns false if the walk ended at a pair that it could not compare. Contents that hold themselves end
/// where one more round would find nothing new.
bool CompareContents(ComparisonContext& context, const OrvDoc::Content& left, const OrvDoc::Content& right);

/// Compares two child lists and those of all groups below them, pair by pair, strictly by position. Returns
/// false as above; a list that ends early is reported and is no failure. Needs no stack for deep nesting.
bool CompareChildLists(ComparisonContext& context, const OrvDoc::Detail::List<OrvDoc::ContentObject>& left,
                       const OrvDoc::Detail::List<OrvDoc::ContentObject>& right);

/// Compares the pair of the scope without the children of groups. Returns false if the pair can't be compared
/// further: the classes differ, or the comparison doesn't know the kind of object.
bool CompareObjects(ComparisonContext& context, DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
