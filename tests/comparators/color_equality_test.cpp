#include "comparators/color_equality.h"

#include "support/document_makers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace HarrowSupport::Testing
{

namespace
{

/// Both ways round.
bool Equal(const Color& left, const Color& right)
{
    const bool result = Comparators::ColorListsEqual(left, right);
    EXPECT_EQ(Comparators::ColorListsEqual(right, left), result) << "right against left";
    return result;
}

} // namespace

TEST(ColorListsEqual, EntriesInAnotherOrderAreEqual)
{
    EXPECT_TRUE(Equal(Tints({{"a", 0.25f}, {"b", 0.5f}, {"c", 1.0f}}),
                      Tints({{"c", 1.0f}, {"a", 0.25f}, {"b", 0.5f}})));
}

TEST(ColorListsEqual, EmptyListsAreEqual)
{
    EXPECT_TRUE(Equal(Tints({}), Tints({})));
}

TEST(ColorListsEqual, AnotherNumberOfEntriesDiffers)
{
    EXPECT_FALSE(Equal(Tints({{"a", 0.25f}}), Tints({{"a", 0.25f}, {"b", 0.0f}})));
}

TEST(ColorListsEqual, AnotherNameDiffers)
{
    EXPECT_FALSE(Equal(Tints({{"a", 0.25f}}), Tints({{"A", 0.25f}})));
}

TEST(ColorListsEqual, RightEntriesAreNotUsedUp)
{
    const Color twice = Tints({{"a", 1.0f}, {"a", 1.0f}});
    const Color both = Tints({{"a", 1.0f}, {"b", 1.0f}});
    EXPECT_TRUE(Comparators::ColorListsEqual(twice, both));
    EXPECT_FALSE(Comparators::ColorListsEqual(both, twice));
}

TEST(ColorListsEqual, ALaterEntryOfTheSameNameCanMatch)
{
    EXPECT_TRUE(
        Comparators::ColorListsEqual(Tints({{"a", 1.0f}, {"a", 1.0f}}), Tints({{"a", 0.0f}, {"a", 1.0f}})));
}

TEST(ColorListsEqual, TintsJustBelowTheToleranceApartAreEqual)
{
    EXPECT_TRUE(Equal(Tints({{"a", 0.0f}}), Tints({{"a", std::nextafter(1e-5f, 0.0f)}})));
    EXPECT_TRUE(Equal(AllSeparations(0.0f), AllSeparations(std::nextafter(1e-5f, 0.0f))));
}

TEST(ColorListsEqual, TintsTheToleranceApartDiffer)
{
    EXPECT_FALSE(Equal(Tints({{"a", 0.0f}}), Tints({{"a", 1e-5f}})));
    EXPECT_FALSE(Equal(AllSeparations(0.0f), AllSeparations(1e-5f)));
}

TEST(ColorListsEqual, OverprintCounts)
{
    EXPECT_FALSE(Equal(Tints({{"a", 1.0f}}, true), Tints({{"a", 1.0f}})));
    EXPECT_FALSE(Equal(AllSeparations(1.0f, true), AllSeparations(1.0f)));
}

TEST(ColorListsEqual, TheAllFlagCounts)
{
    EXPECT_FALSE(Equal(AllSeparations(0.0f), Tints({})));
}

TEST(ColorListsEqual, EntriesDoNotCountUnderTheAllFlag)
{
    Color left = Tints({{"a", 1.0f}, {"b", 0.5f}});
    left.all = true;
    left.valueForAll = 0.5f;
    EXPECT_TRUE(Equal(left, AllSeparations(0.5f)));
}

TEST(ColorListsEqual, TheValueForAllDoesNotCountWithoutTheFlag)
{
    Color left = Tints({{"a", 1.0f}});
    left.valueForAll = 0.75f;
    EXPECT_TRUE(Equal(left, Tints({{"a", 1.0f}})));
}

TEST(ColorListsEqual, NumbersThatAreNotFiniteMatchNothing)
{
    for (float number : {std::nanf(""), std::numeric_limits<float>::infinity()}) {
        EXPECT_FALSE(Equal(Tints({{"a", number}}), Tints({{"a", number}})));
        EXPECT_FALSE(Equal(AllSeparations(number), AllSeparations(number)));
    }
}

} // namespace HarrowSupport::Testing
