#include "pdf/writer/document/page_box_corners.h"

#include <limits>
#include <random>

#include <gtest/gtest.h>

namespace OrvPdf
{
namespace
{

using Box = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

Box ReadBack(const BoxCorners& corners)
{
    return Plexa::RectangleFromCorners<Plexa::MilliPointCoordinateSystem>({corners.left, corners.bottom},
                                                                          {corners.right, corners.top});
}

TEST(PageBoxCorners, AreTheEdgesOfAPlainBox)
{
    const auto corners = FindBoxCorners(Box(1000.0, -2000.0, 595276.0, 841890.0));
    ASSERT_TRUE(corners);
    EXPECT_EQ(corners->right, 596276.0);
    EXPECT_EQ(corners->top, 839890.0);
}

TEST(PageBoxCorners, GiveTheExtentBackBitByBitWhereverThatIsPossible)
{
    const unsigned seed = 7;
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> edge(-1e5, 1e5);
    for (int round = 0; round < 10000; ++round) {
        // The extent as a reader had it: the difference of two edges.
        const double left = edge(random);
        const double bottom = edge(random);
        const Box box(left, bottom, left + 1e6 * 1.1 - left, bottom + 3e5 / 7.0 - bottom);
        const auto corners = FindBoxCorners(box);
        ASSERT_TRUE(corners);
        ASSERT_EQ(ReadBack(*corners), box) << "seed " << seed << ", round " << round;
    }
}

TEST(PageBoxCorners, AreTheNearestOnesForASmallBoxFarAway)
{
    const auto corners = FindBoxCorners(Box(60845000.0, 0.0, 233122.33333333334, 0.0));
    ASSERT_TRUE(corners);
    EXPECT_NEAR(ReadBack(*corners).size.width.value, 233122.33333333334, 1e-8);
}

TEST(PageBoxCorners, KeepABoxWithoutExtent)
{
    const auto corners = FindBoxCorners(Box(5.0, 5.0, 0.0, 0.0));
    ASSERT_TRUE(corners);
    EXPECT_EQ(ReadBack(*corners), Box(5.0, 5.0, 0.0, 0.0));
}

TEST(PageBoxCorners, DoNotExistForWhatNoFileHolds)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(FindBoxCorners(Box(0.0, 0.0, -1.0, 1.0)));
    EXPECT_FALSE(FindBoxCorners(Box(0.0, 0.0, 1.0, infinity)));
    EXPECT_FALSE(FindBoxCorners(Box(notANumber, 0.0, 1.0, 1.0)));
    EXPECT_FALSE(FindBoxCorners(Box(1e308, 0.0, 1.7e308, 1.0)));
}

} // namespace
} // namespace OrvPdf
