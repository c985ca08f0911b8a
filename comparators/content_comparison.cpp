// The walk over the objects of a content. Both child lists are flattened by the same rules
// (FlatChildIterator) and paired by position; each pair is compared and reported before the children of
// groups, and these before the next pair. There is no search for the best match: after an inserted object
// every pair differs, and the first pair of two classes ends the walk.

#include "content_comparison.h"

#include "comparison_context.h"
#include "flat_child_iterator.h"
#include "object_type_name.h"
#include "stack_room.h"

#include <orv_doc/blend_color_space.h>
#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/dump.h>
#include <orv_doc/group.h>
#include <orv_doc/transfer_function_set.h>

#include <cstddef>
#include <iostream>
#include <string>
#include <vector>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;

/// A pair of child lists that the walk is inside.
struct ListPair
{
    ListPair(const OrvDoc::Detail::List<OrvDoc::ContentObject>& leftList,
             const OrvDoc::Detail::List<OrvDoc::ContentObject>& rightList)
        : left(leftList), right(rightList)
    {}

    FlatChildIterator left;
    FlatChildIterator right;
};

void DumpIfAsked(const ComparisonContext& context, const OrvDoc::ContentObject& object)
{
    constexpr auto everythingBelow = static_cast<OrvDoc::DumpOption>(1024);
    if (context.options.dumpLevel != 0)
        OrvDoc::Dump(object, std::clog, everythingBelow, 0);
}

/// Reports the first object that only one list has. Nothing if both lists have ended.
void ReportSurplus(ComparisonContext& context, const OrvDoc::ContentObject* left,
                   const OrvDoc::ContentObject* right)
{
    const OrvDoc::ContentObject* surplus = left != nullptr ? left : right;
    if (surplus == nullptr)
        return;
    context.reporter.Report(ReportKind::Difference, left != nullptr ? "ObjectRemoved" : "ObjectAdded",
                            LocationPath(1, LocationEntry(left)), LocationPath(1, LocationEntry(right)),
                            ObjectTypeName(*surplus));
    DumpIfAsked(context, *surplus);
}

/// The object as a group whose children are a list of their own; null if it is none. A clipping object is
/// delivered whole even if it is an implicit group, and its children are not compared.
const OrvDoc::Group* GroupToWalk(ComparisonContext& context, const OrvDoc::ContentObject& object)
{
    if (context.objectClasses.Of(object).kind != ObjectKind::Group || IsImplicitGroup(object))
        return nullptr;
    return static_cast<const OrvDoc::Group*>(&object);
}

void CompareUserCreated(const OrvDoc::Group& left, const OrvDoc::Group& right, ObjectScope& scope)
{
    // Only unnamed groups are asked.
    if (!left.GetName().empty() || !right.GetName().empty())
        return;
    const bool leftUserCreated = IsUserCreated(left);
    const bool rightUserCreated = IsUserCreated(right);
    if (leftUserCreated != rightUserCreated)
        scope.AddValues("GroupIsUserCreated", leftUserCreated, rightUserCreated);
}

std::size_t CountKnownMembers(const ComparisonContext& context)
{
    return context.patternIndex.GetMemberCount() + context.patternContentIndex.GetMemberCount() +
           context.formIndex.GetMemberCount();
}

/// Whether the walk is inside these contents already and would come here again and again. Most contents that
/// hold themselves end by the reuse rule, but not those of soft masks, nor those whose paints were met with
/// others before. As long as a paint is met for the first time on the way round, one more round may find all
/// of them known; if none is, all rounds are alike.
bool GoesRoundForever(const ComparisonContext& context, const OrvDoc::Content& left,
                      const OrvDoc::Content& right)
{
    const auto walks = context.openWalks.find({&left, &right});
    return walks != context.openWalks.end() && walks->second.back() == CountKnownMembers(context);
}

bool CompareOnce(ComparisonContext& context, const OrvDoc::Content& left, const OrvDoc::Content& right)
{
    DifferenceScope<OrvDoc::Content> scope(left, right);
    if (left.GetType() != right.GetType())
        scope.AddValues("ContentType", left.GetType(), right.GetType());
    if (!(left.GetBlendColorSpace() == right.GetBlendColorSpace()))
        scope.AddValues("ContentBlendColorSpace", left.GetBlendColorSpace(), right.GetBlendColorSpace());
    if (!(left.GetTransferFunctionSet() == right.GetTransferFunctionSet())) {
        scope.AddValues("ContentTransferFunctions", left.GetTransferFunctionSet(),
                        right.GetTransferFunctionSet());
    }
    const bool completed = CompareChildLists(context, left.GetChildren(), right.GetChildren());
    scope.Flush(context.reporter);
    return completed;
}

} // namespace

bool CompareContents(ComparisonContext& context, const OrvDoc::Content& left, const OrvDoc::Content& right)
{
    if (GoesRoundForever(context, left, right))
        return true;
    const auto walks = context.openWalks.try_emplace({&left, &right}).first;
    walks->second.push_back(CountKnownMembers(context));
    // Contents inside of contents nest as deep as they like, too, and what is compared around them is not
    // finished yet.
    bool completed = false;
    CallWithStackRoom([&] { completed = CompareOnce(context, left, right); });
    walks->second.pop_back();
    if (walks->second.empty())
        context.openWalks.erase(walks);
    return completed;
}

bool CompareChildLists(ComparisonContext& context, const OrvDoc::Detail::List<OrvDoc::ContentObject>& left,
                       const OrvDoc::Detail::List<OrvDoc::ContentObject>& right)
{
    // The open lists stand here and not on the program's stack, since groups of a file nest as deep as it
    // likes.
    std::vector<ListPair> open;
    open.emplace_back(left, right);
    while (!open.empty()) {
        const OrvDoc::ContentObject* leftObject = open.back().left.Next();
        const OrvDoc::ContentObject* rightObject = open.back().right.Next();
        if (leftObject == nullptr || rightObject == nullptr) {
            ReportSurplus(context, leftObject, rightObject);
            open.pop_back();
            continue;
        }

        ObjectScope scope(*leftObject, *rightObject);
        if (!CompareObjects(context, scope)) {
            scope.Flush(context.reporter);
            DumpIfAsked(context, *leftObject);
            DumpIfAsked(context, *rightObject);
            return false;
        }
        const OrvDoc::Group* leftGroup = GroupToWalk(context, *leftObject);
        const OrvDoc::Group* rightGroup = GroupToWalk(context, *rightObject);
        const bool walkChildren = leftGroup != nullptr && rightGroup != nullptr;
        if (walkChildren)
            CompareUserCreated(*leftGroup, *rightGroup, scope);
        scope.Flush(context.reporter);
        if (walkChildren)
            open.emplace_back(leftGroup->children, rightGroup->children);
    }
    return true;
}

} // namespace HarrowSupport::Comparators
