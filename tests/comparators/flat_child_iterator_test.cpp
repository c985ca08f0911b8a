#include "comparators/flat_child_iterator.h"

#include "foreign_objects.h"
#include "support/document_makers.h"

#include <orv_blend/transparency.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using List = OrvDoc::Detail::List<OrvDoc::ContentObject>;

/// The names of the objects that the iterator delivers.
std::vector<std::string> Delivered(const List& list)
{
    std::vector<std::string> names;
    Comparators::FlatChildIterator iterator(list);
    while (const OrvDoc::ContentObject* object = iterator.Next())
        names.push_back(object->GetName());
    return names;
}

/// The same rules written down as recursion.
void FlattenRecursively(const List& list, std::vector<std::string>& names)
{
    std::vector<std::string> held;
    for (const OrvDoc::ContentObject* item = list.first; item != nullptr; item = item->next) {
        if (item->IsClippingObject())
            held.push_back(item->GetName());
        else if (Comparators::IsImplicitGroup(*item))
            FlattenRecursively(static_cast<const OrvDoc::Group&>(*item).children, names);
        else
            names.push_back(item->GetName());
    }
    names.insert(names.end(), held.rbegin(), held.rend());
}

/// Fills a list with random objects, implicit groups among them.
void FillAtRandom(std::mt19937& random, OrvDoc::Group& group, int depth, int& counter)
{
    const unsigned count = random() % 5;
    for (unsigned i = 0; i < count; ++i) {
        const std::string name = std::to_string(counter++);
        const unsigned kind = random() % 4;
        if (kind == 0)
            Place(group, Clip(name));
        else if (kind == 1 && depth < 5)
            FillAtRandom(random, Place(group, ImplicitGroup()), depth + 1, counter);
        else if (kind == 2 && depth < 5)
            FillAtRandom(random, Place(group, NamedGroup(name)), depth + 1, counter);
        else
            Place(group, Square(name));
    }
}

} // namespace

TEST(FlatChildIterator, AnEmptyListDeliversNothing)
{
    EXPECT_THAT(Delivered(ImplicitGroup()->children), IsEmpty());
}

TEST(FlatChildIterator, AnExhaustedListStaysExhausted)
{
    const auto list = With(ImplicitGroup(), Square("a"));
    Comparators::FlatChildIterator iterator(list->children);
    EXPECT_NE(iterator.Next(), nullptr);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(iterator.Next(), nullptr);
}

TEST(FlatChildIterator, ChildrenOfAnImplicitGroupStandInItsPlace)
{
    const auto list =
        With(ImplicitGroup(), Square("a"), With(ImplicitGroup(), Square("b"), Square("c")), Square("d"));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "b", "c", "d"));
}

TEST(FlatChildIterator, EmptyImplicitGroupsLeaveNoTrace)
{
    const auto list =
        With(ImplicitGroup(), ImplicitGroup(), Square("a"), With(ImplicitGroup(), ImplicitGroup()));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a"));
}

TEST(FlatChildIterator, OtherGroupsAreDeliveredWhole)
{
    auto withTransparency = Named(ImplicitGroup(), "");
    withTransparency->SetTransparency(OrvBlend::Transparency::Factory().Get());
    Place(*withTransparency, Square("x"));
    const auto list =
        With(ImplicitGroup(), With(NamedGroup("named"), Square("x")), With(UserGroup(), Square("x")),
             With(std::make_unique<OrvDoc::TextGroup>(), Square("x")), std::move(withTransparency),
             With(std::make_unique<ForeignGroup>(OrvDoc::Group::Flags::Default), Square("x")));
    EXPECT_THAT(Delivered(list->children), ElementsAre("named", "", "", "", ""));
}

TEST(FlatChildIterator, OnlyTheUserBitOfTheFlagsCounts)
{
    for (unsigned bit = 0; bit < 32; ++bit) {
        const OrvDoc::Group group(static_cast<OrvDoc::Group::Flags>(1u << bit));
        EXPECT_EQ(Comparators::IsImplicitGroup(group), bit != 30) << "bit " << bit;
    }
}

TEST(FlatChildIterator, ClippingObjectsComeLast)
{
    const auto list = With(ImplicitGroup(), Clip("clip"), Square("a"), Square("b"));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "b", "clip"));
}

TEST(FlatChildIterator, ClippingObjectsOfALevelComeInReverse)
{
    const auto list = With(ImplicitGroup(), Clip("c1"), Square("a"), Clip("c2"), Clip("c3"));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "c3", "c2", "c1"));
}

TEST(FlatChildIterator, ClippingObjectsEndTheirOwnLevel)
{
    const auto list =
        With(ImplicitGroup(), Clip("outer"),
             With(ImplicitGroup(), Clip("inner"), Square("a"), With(ImplicitGroup(), Clip("innermost"))),
             Square("b"));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "innermost", "inner", "b", "outer"));
}

TEST(FlatChildIterator, LevelsThatEndTogetherReleaseTheInnerOneFirst)
{
    const auto list = With(ImplicitGroup(), Clip("outer"),
                           With(ImplicitGroup(), Clip("inner"), With(ImplicitGroup(), Square("a"))));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "inner", "outer"));
}

TEST(FlatChildIterator, AClippingGroupIsDeliveredWhole)
{
    auto clipping = Named(With(std::make_unique<OrvDoc::TextGroup>(), Square("inside")), "clip");
    clipping->SetClippingObject(true);
    const auto list = With(ImplicitGroup(), std::move(clipping), Square("a"));
    EXPECT_THAT(Delivered(list->children), ElementsAre("a", "clip"));
}

TEST(FlatChildIterator, AgreesWithTheRulesAsRecursionOnRandomTrees)
{
    const unsigned seed = std::random_device()();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int round = 0; round < 500; ++round) {
        const auto root = ImplicitGroup();
        int counter = 0;
        FillAtRandom(random, *root, 0, counter);
        std::vector<std::string> expected;
        FlattenRecursively(root->children, expected);
        ASSERT_EQ(Delivered(root->children), expected) << "round " << round;
    }
}

TEST(FlatChildIterator, NeedsNoStackForDeepImplicitGroups)
{
    // Linked by hand, since the depth is what the iterator has to bear and not the groups.
    constexpr std::size_t depth = 100000;
    std::vector<std::unique_ptr<OrvDoc::Group>> groups;
    for (std::size_t i = 0; i < depth; ++i)
        groups.push_back(ImplicitGroup());
    const auto leaf = Square("leaf");
    for (std::size_t i = 0; i + 1 < depth; ++i)
        groups[i]->children.first = groups[i]->children.last = groups[i + 1].get();
    groups.back()->children.first = groups.back()->children.last = leaf.get();
    EXPECT_THAT(Delivered(groups.front()->children), ElementsAre("leaf"));
    for (const auto& group : groups)
        group->children.first = group->children.last = nullptr;
}

} // namespace HarrowSupport::Testing
