#include <orv_color/color_functions.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvColor
{
namespace
{

using testing::ElementsAre;
using Color = ColorList<ColorPolicy>;
using Mapping = ColorList<SeparationMappingPolicy>;

TEST(GetComponentsTest, FollowsTheIndicesOfTheMapping)
{
    const Color color{{{0.1f, "A"}, {0.2f, "B"}, {0.3f, "C"}}, 0.0f, false, false};
    const Mapping mapping{{{2, "A"}, {0, "B"}, {1, "C"}}, Unmapped, false, false};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.2f, 0.3f, 0.1f));
}

TEST(GetComponentsTest, SeparationsThatTheColourLacksAreZero)
{
    const Color color{{{0.5f, "B"}}, 0.9f, false, false};
    const Mapping mapping{{{0, "A"}, {1, "B"}, {2, "C"}}, Unmapped, false, false};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.0f, 0.5f, 0.0f));
}

TEST(GetComponentsTest, UnmappedSeparationsAreLeftOut)
{
    const Color color{{{0.5f, "A"}, {0.6f, "B"}}, 0.0f, false, false};
    const Mapping mapping{{{Unmapped, "A"}, {0, "B"}}, Unmapped, false, false};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.6f));
}

TEST(GetComponentsTest, AMappingOfAllTakesTheValueForAll)
{
    const Color color{{}, 0.7f, false, true};
    const Mapping mapping{{}, 0, false, true};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.7f));
}

TEST(GetComponentsTest, AColourOfAllCountsForEachSeparation)
{
    const Color color{{}, 0.7f, false, true};
    const Mapping mapping{{{0, "A"}, {1, "B"}}, Unmapped, false, false};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.7f, 0.7f));
}

TEST(GetComponentsTest, OfTwoEntriesOfOneNameTheFirstCounts)
{
    const Color color{{{0.1f, "A"}, {0.2f, "A"}}, 0.0f, false, false};
    const Mapping mapping{{{0, "A"}}, Unmapped, false, false};
    EXPECT_THAT(GetComponents(color, mapping), ElementsAre(0.1f));
}

TEST(GetComponentsTest, AnEmptyMappingGivesNothing)
{
    EXPECT_THAT(GetComponents(Color{{{0.1f, "A"}}, 0.0f, false, false}, Mapping()), ElementsAre());
}

TEST(ConcatenateTest, AppliesTheFirstRangeAndThenTheSecond)
{
    EXPECT_THAT(Concatenate({0.25, 0.5}, {10.0, 30.0}), ElementsAre(15.0, 20.0));
    EXPECT_THAT(Concatenate({10.0, 30.0}, {0.25, 0.5}), ElementsAre(2.75, 7.75));
}

TEST(ConcatenateTest, KeepsTheOtherRangeBesideTheIdentity)
{
    EXPECT_THAT(Concatenate({0.0, 1.0}, {0.2, 0.7}), ElementsAre(0.2, 0.7));
    EXPECT_THAT(Concatenate({0.2, 0.7}, {0.0, 1.0}), ElementsAre(0.2, 0.7));
}

TEST(ConcatenateTest, TwoReversalsAreNone)
{
    EXPECT_THAT(Concatenate({1.0, 0.0}, {1.0, 0.0}), ElementsAre(0.0, 1.0));
}

} // namespace
} // namespace OrvColor
