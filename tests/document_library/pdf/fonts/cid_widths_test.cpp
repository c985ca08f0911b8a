// Widths by CID: lists, ranges, and what overlaps.

#include "pdf/fonts/cid_widths.h"

#include <algorithm>
#include <random>
#include <vector>

#include <gmock/gmock.h>

namespace
{

using OrvPdf::CidVerticalMetrics;
using OrvPdf::CidWidths;
using testing::ElementsAre;

std::vector<double> FindAll(const CidWidths& widths, std::uint32_t first, std::uint32_t last)
{
    std::vector<double> found;
    for (std::uint32_t cid = first; cid <= last; ++cid)
        found.push_back(widths.Find(cid)[0]);
    return found;
}

CidWidths MakeWidths()
{
    CidWidths widths(CidWidths::Numbers{1000.0});
    return widths;
}

TEST(CidWidths, WithoutEntriesAreTheRest)
{
    CidWidths widths = MakeWidths();
    widths.Finish();
    EXPECT_EQ(widths.Find(0)[0], 1000.0);
    EXPECT_EQ(widths.Find(UINT32_MAX)[0], 1000.0);
}

TEST(CidWidths, OfAListBelongToTheFirstCidAndThoseBehindIt)
{
    CidWidths widths = MakeWidths();
    widths.AddList(120, {{400.0}, {325.0}, {500.0}});
    widths.Finish();
    EXPECT_THAT(FindAll(widths, 119, 123), ElementsAre(1000.0, 400.0, 325.0, 500.0, 1000.0));
}

TEST(CidWidths, OfARangeIncludeBothEnds)
{
    CidWidths widths = MakeWidths();
    widths.AddRange(7, 9, {250.0});
    widths.Finish();
    EXPECT_THAT(FindAll(widths, 6, 10), ElementsAre(1000.0, 250.0, 250.0, 250.0, 1000.0));
}

TEST(CidWidths, OfARangeTheWrongWayRoundCountForNothing)
{
    CidWidths widths = MakeWidths();
    widths.AddRange(9, 7, {250.0});
    widths.Finish();
    EXPECT_THAT(FindAll(widths, 7, 9), ElementsAre(1000.0, 1000.0, 1000.0));
}

TEST(CidWidths, StandInAnyOrder)
{
    CidWidths widths = MakeWidths();
    widths.AddRange(20, 21, {2.0});
    widths.AddList(10, {{1.0}});
    widths.Finish();
    EXPECT_EQ(widths.Find(10)[0], 1.0);
    EXPECT_EQ(widths.Find(20)[0], 2.0);
    EXPECT_EQ(widths.Find(11)[0], 1000.0);
}

TEST(CidWidths, OfLaterEntriesTakeThePlaceOfEarlierOnes)
{
    CidWidths widths = MakeWidths();
    widths.AddList(10, {{1.0}, {2.0}, {3.0}, {4.0}, {5.0}});
    widths.AddRange(11, 12, {9.0});
    widths.Finish();
    EXPECT_THAT(FindAll(widths, 9, 15), ElementsAre(1000.0, 1.0, 9.0, 9.0, 4.0, 5.0, 1000.0));
}

TEST(CidWidths, ReachTheLastCidThereIs)
{
    CidWidths widths = MakeWidths();
    widths.AddList(UINT32_MAX - 1, {{1.0}, {2.0}, {3.0}});
    widths.AddRange(0, UINT32_MAX, {7.0});
    widths.AddRange(5, 5, {8.0});
    widths.Finish();
    EXPECT_EQ(widths.Find(UINT32_MAX)[0], 7.0);
    EXPECT_EQ(widths.Find(5)[0], 8.0);
    EXPECT_EQ(widths.Find(6)[0], 7.0);
}

TEST(CidWidths, AreThoseOfATableWrittenEntryByEntry)
{
    constexpr std::uint32_t cidCount = 60;
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&random](unsigned bound) { return static_cast<std::uint32_t>(random() % bound); };
        CidWidths widths = MakeWidths();
        std::vector<double> table(cidCount, 1000.0);
        for (unsigned entry = 0; entry < 12; ++entry) {
            const std::uint32_t first = below(cidCount);
            const std::uint32_t last = std::min(cidCount - 1, first + below(15));
            std::vector<CidWidths::Numbers> list;
            const bool isRange = below(2) == 0;
            for (std::uint32_t cid = first; cid <= last; ++cid) {
                table[cid] = isRange ? entry : entry * 100 + cid;
                list.push_back({table[cid]});
            }
            if (isRange)
                widths.AddRange(first, last, {static_cast<double>(entry)});
            else
                widths.AddList(first, list);
        }
        widths.Finish();
        EXPECT_EQ(FindAll(widths, 0, cidCount - 1), table) << "seed " << seed;
    }
}

TEST(CidVerticalMetrics, HaveThreeNumbersEach)
{
    CidVerticalMetrics metrics(CidVerticalMetrics::Numbers{});
    metrics.AddList(3, {{-1000.0, 500.0, 880.0}, {-900.0, 450.0, 870.0}});
    metrics.Finish();
    EXPECT_THAT(metrics.Find(4), ElementsAre(-900.0, 450.0, 870.0));
}

} // namespace
