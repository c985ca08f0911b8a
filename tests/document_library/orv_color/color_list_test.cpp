#include <orv_color/color_list.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvColor
{
namespace
{

TEST(ColorListTest, BeginsEmptyWithoutFlags)
{
    const ColorList<ColorPolicy> list;
    EXPECT_TRUE(list.entries.empty());
    EXPECT_EQ(list.valueForAll, 0.0f);
    EXPECT_FALSE(list.overprint);
    EXPECT_FALSE(list.all);
}

TEST(ColorListTest, IndicesBeginUnmapped)
{
    EXPECT_EQ(ColorList<SeparationMappingPolicy>().valueForAll, Unmapped);
    EXPECT_EQ(ColorList<SeparationMappingPolicy>::Entry().value, Unmapped);
    EXPECT_EQ(ColorList<ChannelMappingPolicy>().valueForAll.index, Unmapped);
}

TEST(ColorListTest, DecodeRangeBeginsAsZeroToOne)
{
    EXPECT_THAT(ChannelMappingPolicy::Value().decode, testing::ElementsAre(0.0, 1.0));
}

TEST(ColorListTest, UnmappedHasAllBitsSet)
{
    EXPECT_EQ(Unmapped + 1, 0u);
}

TEST(ColorListTest, FieldsCanBeFilledInTheirOrder)
{
    const ColorList<ColorPolicy> list{{{0.5f, "Cyan"}}, 0.25f, true, false};
    EXPECT_EQ(list.entries[0].value, 0.5f);
    EXPECT_EQ(list.entries[0].name, "Cyan");
    EXPECT_EQ(list.valueForAll, 0.25f);
    EXPECT_TRUE(list.overprint);
    EXPECT_FALSE(list.all);
}

TEST(ColorListTest, AddAppendsInOrder)
{
    ColorList<SeparationMappingPolicy> list;
    list.Add("B", 0);
    list.Add("A", 1);
    EXPECT_EQ(list, (ColorList<SeparationMappingPolicy>{{{0, "B"}, {1, "A"}}, Unmapped, false, false}));
}

TEST(ColorListTest, AddTakesANameTwice)
{
    ColorList<ColorantPolicy> list;
    list.Add("B");
    list.Add("B");
    EXPECT_EQ(list.entries.size(), 2u);
}

TEST(ColorListTest, AddIsRefusedUnderTheAllFlag)
{
    ColorList<ColorPolicy> list;
    list.all = true;
    try {
        list.Add("Cyan", 1.0f);
        FAIL() << "Add accepted an entry beside all separations.";
    } catch (const std::logic_error& error) {
        EXPECT_STREQ(error.what(), "Can't add a separation when the \"All\" flag is enabled.");
    }
    EXPECT_TRUE(list.entries.empty());
}

TEST(ColorListTest, EveryFieldCountsForEquality)
{
    const ColorList<ColorPolicy> list{{{0.5f, "Cyan"}}, 0.0f, false, false};
    EXPECT_EQ(list, list);
    EXPECT_NE(list, (ColorList<ColorPolicy>{{{0.6f, "Cyan"}}, 0.0f, false, false}));
    EXPECT_NE(list, (ColorList<ColorPolicy>{{{0.5f, "cyan"}}, 0.0f, false, false}));
    EXPECT_NE(list, (ColorList<ColorPolicy>{{{0.5f, "Cyan"}}, 0.1f, false, false}));
    EXPECT_NE(list, (ColorList<ColorPolicy>{{{0.5f, "Cyan"}}, 0.0f, true, false}));
    EXPECT_NE(list, (ColorList<ColorPolicy>{{{0.5f, "Cyan"}}, 0.0f, false, true}));
}

} // namespace
} // namespace OrvColor
