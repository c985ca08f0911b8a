#include "comparators/mapping_comparison.h"

#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace
{

using Comparators::ChannelMapping;
using Comparators::ChannelPair;
using Comparators::ComponentPair;
using Comparators::SeparationMapping;
using Channel = OrvColor::ChannelMappingPolicy::Value;

constexpr std::size_t none = OrvColor::Unmapped;
constexpr double decodeTolerance = 1.0 / 131072.0;

SeparationMapping Mapping(std::initializer_list<std::pair<const char*, std::size_t>> entries)
{
    SeparationMapping mapping;
    for (const auto& entry : entries)
        mapping.Add(entry.first, entry.second);
    return mapping;
}

SeparationMapping MappingForAll(std::size_t index)
{
    SeparationMapping mapping;
    mapping.all = true;
    mapping.valueForAll = index;
    return mapping;
}

Channel ChannelOf(std::size_t index, double low = 0.0, double high = 1.0)
{
    Channel channel;
    channel.index = index;
    channel.decode = {low, high};
    return channel;
}

ChannelMapping Channels(std::initializer_list<std::pair<const char*, Channel>> entries)
{
    ChannelMapping mapping;
    for (const auto& entry : entries)
        mapping.Add(entry.first, entry.second);
    return mapping;
}

ChannelMapping ChannelsForAll(const Channel& channel)
{
    ChannelMapping mapping;
    mapping.all = true;
    mapping.valueForAll = channel;
    return mapping;
}

struct Outcome
{
    boost::optional<std::vector<ComponentPair>> pairs;
    std::vector<std::string> lines;
};

Outcome CompareOneWay(const SeparationMapping& left, const SeparationMapping& right)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    Outcome outcome;
    outcome.pairs = Comparators::CompareSeparationMappings(left, right, scope);
    RecordingReporter reporter;
    scope.Flush(reporter);
    outcome.lines = reporter.Lines();
    return outcome;
}

/// Compares both ways round, checks the reports, and returns the pairs after checking that they are mirrored.
boost::optional<std::vector<ComponentPair>> Compare(const SeparationMapping& left,
                                                    const SeparationMapping& right,
                                                    const std::vector<ExpectedReport>& expected)
{
    const Outcome outcome = CompareOneWay(left, right);
    const Outcome mirrored = CompareOneWay(right, left);
    ExpectLines(outcome.lines, mirrored.lines, expected);
    EXPECT_EQ(outcome.pairs.has_value(), mirrored.pairs.has_value());
    if (outcome.pairs && mirrored.pairs) {
        std::vector<ComponentPair> swapped;
        for (const ComponentPair& pair : *mirrored.pairs)
            swapped.emplace_back(pair.second, pair.first);
        EXPECT_EQ(*outcome.pairs, swapped);
    }
    return outcome.pairs;
}

bool Equal(const ChannelMapping& left, const ChannelMapping& right)
{
    const bool result = Comparators::MappingListsEqual(left, right);
    EXPECT_EQ(Comparators::MappingListsEqual(right, left), result) << "right against left";
    return result;
}

bool Equal(const SeparationMapping& left, const SeparationMapping& right)
{
    const bool result = Comparators::MappingListsEqual(left, right);
    EXPECT_EQ(Comparators::MappingListsEqual(right, left), result) << "right against left";
    return result;
}

template <typename List>
List Overprinting(List list)
{
    list.overprint = true;
    return list;
}

} // namespace

TEST(MappingListsEqual, TheOrderDoesNotCount)
{
    EXPECT_TRUE(Equal(Mapping({{"a", 0}, {"b", 1}}), Mapping({{"b", 1}, {"a", 0}})));
}

TEST(MappingListsEqual, NamesIndicesAndTheNumberOfEntriesCount)
{
    EXPECT_FALSE(Equal(Mapping({{"a", 0}}), Mapping({{"b", 0}})));
    EXPECT_FALSE(Equal(Mapping({{"a", 0}}), Mapping({{"a", 1}})));
    EXPECT_FALSE(Equal(Mapping({{"a", 0}}), Mapping({{"a", none}})));
    EXPECT_FALSE(Equal(Mapping({{"a", 0}}), Mapping({{"a", 0}, {"b", 1}})));
}

TEST(MappingListsEqual, RightEntriesAreNotUsedUp)
{
    const SeparationMapping twice = Mapping({{"a", 0}, {"a", 0}});
    const SeparationMapping both = Mapping({{"a", 0}, {"b", 1}});
    EXPECT_TRUE(Comparators::MappingListsEqual(twice, both));
    EXPECT_FALSE(Comparators::MappingListsEqual(both, twice));
}

TEST(MappingListsEqual, OverprintCounts)
{
    EXPECT_FALSE(Equal(Overprinting(Mapping({{"a", 0}})), Mapping({{"a", 0}})));
    EXPECT_FALSE(Equal(Overprinting(MappingForAll(0)), MappingForAll(0)));
}

TEST(MappingListsEqual, EntriesDoNotCountUnderTheAllFlag)
{
    SeparationMapping left = Mapping({{"a", 0}});
    left.all = true;
    left.valueForAll = 3;
    EXPECT_TRUE(Equal(left, MappingForAll(3)));
    EXPECT_FALSE(Equal(left, MappingForAll(4)));
    EXPECT_FALSE(Equal(left, Mapping({{"a", 0}})));
}

TEST(MappingListsEqual, DecodeRangesJustBelowTheToleranceApartAreEqual)
{
    const double below = std::nextafter(decodeTolerance, 0.0);
    EXPECT_TRUE(
        Equal(Channels({{"a", ChannelOf(0, 0.0, 0.0)}}), Channels({{"a", ChannelOf(0, below, 0.0)}})));
    EXPECT_TRUE(
        Equal(Channels({{"a", ChannelOf(0, 0.0, 0.0)}}), Channels({{"a", ChannelOf(0, 0.0, -below)}})));
    EXPECT_TRUE(Equal(ChannelsForAll(ChannelOf(0, 0.0, 0.0)), ChannelsForAll(ChannelOf(0, below, below))));
}

TEST(MappingListsEqual, DecodeRangesTheToleranceApartDiffer)
{
    EXPECT_FALSE(Equal(Channels({{"a", ChannelOf(0, 0.0, 0.0)}}),
                       Channels({{"a", ChannelOf(0, decodeTolerance, 0.0)}})));
    EXPECT_FALSE(Equal(Channels({{"a", ChannelOf(0, 0.0, 0.0)}}),
                       Channels({{"a", ChannelOf(0, 0.0, decodeTolerance)}})));
    EXPECT_FALSE(
        Equal(ChannelsForAll(ChannelOf(0, 0.0, 0.0)), ChannelsForAll(ChannelOf(0, 0.0, decodeTolerance))));
}

TEST(MappingListsEqual, DecodeRangesOfUnmappedChannelsDoNotCount)
{
    EXPECT_TRUE(
        Equal(Channels({{"a", ChannelOf(none, 0.0, 1.0)}}), Channels({{"a", ChannelOf(none, 1.0, 0.0)}})));
    EXPECT_TRUE(Equal(ChannelsForAll(ChannelOf(none, 0.0, 1.0)), ChannelsForAll(ChannelOf(none, 1.0, 0.0))));
}

TEST(CompareMappings, PairsAreSortedByName)
{
    const auto pairs =
        Compare(Mapping({{"b", 0}, {"a", 1}, {"aa", 2}}), Mapping({{"aa", 5}, {"b", 6}, {"a", 7}}), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(Pair(1, 7), Pair(2, 5), Pair(0, 6)));
}

TEST(CompareMappings, NamesAreSortedAsBytes)
{
    const auto pairs = Compare(Mapping({{"\xc3\xa4", 0}, {"z", 1}, {"Z", 2}}),
                               Mapping({{"Z", 2}, {"z", 1}, {"\xc3\xa4", 0}}), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(Pair(2, 2), Pair(1, 1), Pair(0, 0)));
}

TEST(CompareMappings, UnmappedEntriesDropOut)
{
    const auto pairs = Compare(Mapping({{"a", none}, {"b", 0}}), Mapping({{"b", 1}, {"a", none}}), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(Pair(0, 1)));
}

TEST(CompareMappings, EmptyListsGiveNoPairs)
{
    const auto pairs = Compare(Mapping({}), Mapping({}), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, IsEmpty());
}

TEST(CompareMappings, ANameMappedOnOneSideAloneGivesNoResult)
{
    EXPECT_FALSE(Compare(Mapping({{"a", 0}}), Mapping({{"a", none}}),
                         {Difference("ImageChannelsMapped", "(a @ 0)", "(a @ UNMAPPED)")}));
}

TEST(CompareMappings, TheListsPrintMappedEntriesFirstAndSorted)
{
    EXPECT_FALSE(Compare(Mapping({{"d", none}, {"c", 0}, {"b", none}, {"a", 1}}),
                         Mapping({{"x", none}, {"e", 2}}),
                         {Difference("ImageChannelsMapped", "(a @ 1, c @ 0, b @ UNMAPPED, d @ UNMAPPED)",
                                     "(e @ 2, x @ UNMAPPED)")}));
}

TEST(CompareMappings, AnUnmappedNameOnOneSideGivesNoResult)
{
    EXPECT_FALSE(Compare(Mapping({{"a", 0}, {"b", none}}), Mapping({{"a", 0}}),
                         {Difference("ImageChannelsMapped", "(a @ 0, b @ UNMAPPED)", "(a @ 0)")}));
}

TEST(CompareMappings, ListsThatCountAsEqualWithOtherNamesGiveNeitherResultNorReport)
{
    const Outcome outcome = CompareOneWay(Mapping({{"a", 0}, {"a", 0}}), Mapping({{"a", 0}, {"b", 1}}));
    EXPECT_FALSE(outcome.pairs.has_value());
    EXPECT_THAT(outcome.lines, IsEmpty());
}

TEST(CompareMappings, AllAgainstOneMappedEntryGivesOnePair)
{
    const auto pairs =
        Compare(MappingForAll(3), Mapping({{"a", 5}}), {Difference("ImageRegistrationColorSpace", "1", "0")});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(Pair(3, 5)));
}

TEST(CompareMappings, AllAgainstAnythingElseHasNoCommonForm)
{
    EXPECT_FALSE(Compare(MappingForAll(3), Mapping({{"a", none}}),
                         {Difference("ImageChannelMapping", "(All @ 3)", "(a @ UNMAPPED)")}));
    EXPECT_FALSE(Compare(MappingForAll(3), Mapping({{"a", 0}, {"b", 1}}),
                         {Difference("ImageChannelMapping", "(All @ 3)", "(a @ 0, b @ 1)")}));
    EXPECT_FALSE(
        Compare(MappingForAll(3), Mapping({}), {Difference("ImageChannelMapping", "(All @ 3)", "(Empty)")}));
    EXPECT_FALSE(Compare(MappingForAll(none), Mapping({{"a", 0}}),
                         {Difference("ImageChannelMapping", "(All @ UNMAPPED)", "(a @ 0)")}));
}

TEST(CompareMappings, AllAgainstAllGivesThePairOfTheTwoValues)
{
    const auto pairs = Compare(MappingForAll(3), MappingForAll(4), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(Pair(3, 4)));
}

TEST(CompareMappings, AllUnmappedOnBothSidesGivesNoPairs)
{
    const auto pairs = Compare(MappingForAll(none), MappingForAll(none), {});
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, IsEmpty());
}

TEST(CompareMappings, AllMappedOnOneSideAloneHasNoCommonForm)
{
    EXPECT_FALSE(Compare(MappingForAll(3), MappingForAll(none),
                         {Difference("ImageChannelMapping", "(All @ 3)", "(All @ UNMAPPED)")}));
}

TEST(CompareMappings, OverprintIsReportedAndTheComparisonGoesOn)
{
    const auto pairs = Compare(Overprinting(Mapping({{"a", 0}})), Mapping({{"a", 0}}),
                               {Difference("ImageOverprint", "1", "0")});
    EXPECT_TRUE(pairs.has_value());
}

TEST(CompareMappings, OverprintComesBeforeTheAllFlag)
{
    Compare(Overprinting(MappingForAll(0)), Mapping({{"a", 0}}),
            {Difference("ImageOverprint", "1", "0"), Difference("ImageRegistrationColorSpace", "1", "0")});
}

TEST(CompareMappings, OverprintIsNotReportedOnItsOwnWithoutACommonForm)
{
    Compare(Overprinting(MappingForAll(0)), Mapping({}),
            {Difference("ImageChannelMapping", "(All @ 0) Overprint", "(Empty)")});
}

TEST(CompareMappings, ChannelsAreReturnedWithTheirDecodeRanges)
{
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    const auto pairs = Comparators::CompareChannelMappings(
        Channels({{"b", ChannelOf(0)}, {"a", ChannelOf(1, 1.0, 0.0)}}),
        Channels({{"a", ChannelOf(2, 0.5, 1.0)}, {"b", ChannelOf(3)}}), scope);
    ASSERT_TRUE(pairs.has_value());
    EXPECT_THAT(*pairs, ElementsAre(ChannelPair(ChannelOf(1, 1.0, 0.0), ChannelOf(2, 0.5, 1.0)),
                                    ChannelPair(ChannelOf(0), ChannelOf(3))));
    EXPECT_TRUE(scope.differences.empty());
}

} // namespace HarrowSupport::Testing
