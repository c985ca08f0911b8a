#include <iterator>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <plexa/subpath.h>

namespace
{

using testing::ElementsAre;

using Plexa::ConstSegmentIterator;
using Plexa::Segment;
using Plexa::Subpath;

std::string Describe(const ConstSegmentIterator& place)
{
    const auto number = [](double value) { return std::to_string(static_cast<int>(value)); };
    const auto point = [&](const Subpath::Point& p) {
        return ' ' + number(p.x.value) + ' ' + number(p.y.value);
    };
    std::string text = place->IsLine() ? "line" : "no line";
    if (place->IsBezier())
        text = "curve" + point(place->GetFirstControlPoint()) + point(place->GetSecondControlPoint());
    text += point(place->GetEnd());
    if (place.IsImplicitlyAddedCloseSegment())
        text += " implied";
    if (place.IsMove())
        text += " move";
    return text;
}

std::vector<std::string> ListForwards(const Subpath& subpath)
{
    std::vector<std::string> list;
    for (ConstSegmentIterator place = subpath.BeginSegment(); place != subpath.EndSegment(); ++place)
        list.push_back(Describe(place));
    return list;
}

std::vector<std::string> ListBackwards(const Subpath& subpath)
{
    std::vector<std::string> list;
    ConstSegmentIterator place = subpath.EndSegment();
    while (place != subpath.BeginSegment()) {
        --place;
        list.push_back(Describe(place));
    }
    return list;
}

Subpath MakeLineAndCurve(bool closed)
{
    return Subpath({{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}}, "LC", closed);
}

TEST(PlexaSubpath, EmptySubpathBeginsAtItsEnd)
{
    const Subpath subpath;
    EXPECT_TRUE(subpath.BeginSegment() == subpath.EndSegment());
    EXPECT_TRUE(subpath.IsEmpty());
    EXPECT_FALSE(subpath.IsClosed());
}

TEST(PlexaSubpath, OpenSubpathYieldsTheMoveAndTheDrawnSegments)
{
    EXPECT_THAT(ListForwards(MakeLineAndCurve(false)),
                ElementsAre("line 1 2 move", "line 3 4", "curve 5 6 7 8 9 10"));
}

TEST(PlexaSubpath, ClosedSubpathYieldsOneImpliedLineBackToTheStart)
{
    EXPECT_THAT(ListForwards(MakeLineAndCurve(true)),
                ElementsAre("line 1 2 move", "line 3 4", "curve 5 6 7 8 9 10", "line 1 2 implied"));
}

TEST(PlexaSubpath, ImpliedCloseIsThereIfTheLastPointIsTheStart)
{
    const Subpath closed({{1, 2}, {3, 4}, {1, 2}}, "LL", true);
    EXPECT_THAT(ListForwards(closed),
                ElementsAre("line 1 2 move", "line 3 4", "line 1 2", "line 1 2 implied"));
}

TEST(PlexaSubpath, LoneMoveYieldsItself)
{
    EXPECT_THAT(ListForwards(Subpath({{1, 2}}, "", false)), ElementsAre("line 1 2 move"));
}

TEST(PlexaSubpath, ClosedLoneMoveYieldsTheMoveAndTheImpliedClose)
{
    EXPECT_THAT(ListForwards(Subpath({{1, 2}}, "", true)), ElementsAre("line 1 2 move", "line 1 2 implied"));
}

TEST(PlexaSubpath, BackwardsIsTheReverseOfForwards)
{
    const std::vector<Subpath> subpaths = {MakeLineAndCurve(false), MakeLineAndCurve(true),
                                           Subpath({{1, 2}}, "", false), Subpath({{1, 2}}, "", true),
                                           Subpath({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}}, "CL", true)};
    for (const Subpath& subpath : subpaths) {
        std::vector<std::string> backwards = ListBackwards(subpath);
        EXPECT_THAT(ListForwards(subpath), testing::ElementsAreArray(backwards.rbegin(), backwards.rend()));
    }
}

TEST(PlexaSubpath, WalkingBackAndForthComesToTheSamePlace)
{
    const Subpath subpath = MakeLineAndCurve(true);
    ConstSegmentIterator place = subpath.BeginSegment();
    const ConstSegmentIterator first = place++;
    EXPECT_TRUE(first == subpath.BeginSegment());
    ++place;
    EXPECT_EQ(Describe(place), "curve 5 6 7 8 9 10");
    --place;
    EXPECT_EQ(Describe(place), "line 3 4");
    ++place;
    ++place;
    --place;
    EXPECT_EQ(Describe(place), "curve 5 6 7 8 9 10");
}

TEST(PlexaSubpath, LongSubpathsKeepTheirKinds)
{
    // More segments than fit into the letters' own place.
    std::vector<Subpath::Point> points(1);
    std::string kinds;
    for (int i = 0; i < 100; ++i) {
        const bool isCurve = i % 3 == 0;
        kinds += isCurve ? Subpath::bezierKind : Subpath::lineKind;
        points.insert(points.end(), isCurve ? 3 : 1, {static_cast<double>(i), 0.0});
    }
    const Subpath subpath(points, kinds, false);
    int index = 0;
    for (const Segment& segment : subpath.GetDrawnSegments()) {
        EXPECT_EQ(segment.IsBezier(), index % 3 == 0) << index;
        EXPECT_EQ(segment.GetEnd().x.value, index);
        ++index;
    }
    EXPECT_EQ(index, 100);
}

TEST(PlexaSubpath, IteratorsOfTwoEqualSubpathsDiffer)
{
    const Subpath one = MakeLineAndCurve(false);
    const Subpath other = MakeLineAndCurve(false);
    EXPECT_FALSE(one.BeginSegment() == other.BeginSegment());
    EXPECT_FALSE(one.BeginSegment().equal(other.BeginSegment()));
}

TEST(PlexaSubpath, IteratorsAtDifferentPlacesDiffer)
{
    const Subpath subpath = MakeLineAndCurve(false);
    EXPECT_FALSE(subpath.BeginSegment() == std::next(subpath.BeginSegment()));
    EXPECT_TRUE(std::next(subpath.BeginSegment()) == std::next(subpath.BeginSegment()));
}

TEST(PlexaSubpath, IteratorReturnsSegmentsByValue)
{
    EXPECT_TRUE((std::is_same_v<ConstSegmentIterator::reference, Segment>));
    EXPECT_TRUE((std::is_same_v<decltype(*std::declval<ConstSegmentIterator>()), Segment>));
}

TEST(PlexaSubpath, DrawnSegmentsLeaveOutTheMoveAndTheImpliedClose)
{
    const Subpath subpath = MakeLineAndCurve(true);
    std::vector<std::string> list;
    const Subpath::DrawnSegments drawn = subpath.GetDrawnSegments();
    for (ConstSegmentIterator place = drawn.begin(); place != drawn.end(); ++place)
        list.push_back(Describe(place));
    EXPECT_THAT(list, ElementsAre("line 3 4", "curve 5 6 7 8 9 10"));
    EXPECT_EQ(subpath.GetDrawnSegmentCount(), 2u);
    EXPECT_EQ(subpath.GetStart(), Subpath::Point(1, 2));
    EXPECT_TRUE(subpath.IsClosed());
}

TEST(PlexaSubpath, DrawnSegmentsOfALoneOrMissingMoveAreNone)
{
    for (const Subpath& subpath : {Subpath(), Subpath({{1, 2}}, "", false), Subpath({{1, 2}}, "", true)}) {
        const Subpath::DrawnSegments drawn = subpath.GetDrawnSegments();
        EXPECT_TRUE(drawn.begin() == drawn.end());
        EXPECT_EQ(subpath.GetDrawnSegmentCount(), 0u);
    }
}

TEST(PlexaSubpath, EqualitySeesEveryPart)
{
    const Subpath subpath = MakeLineAndCurve(false);
    EXPECT_TRUE(subpath == MakeLineAndCurve(false));
    EXPECT_TRUE(subpath != MakeLineAndCurve(true));
    EXPECT_TRUE(subpath != Subpath({{0, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}}, "LC", false));
    EXPECT_TRUE(subpath != Subpath({{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 11}}, "LC", false));
    EXPECT_TRUE(subpath != Subpath({{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 10}}, "CL", false));
    EXPECT_TRUE(Subpath() != Subpath({{0, 0}}, "", false));
}

TEST(PlexaSubpath, NanEqualsNothing)
{
    const Subpath subpath({{std::numeric_limits<double>::quiet_NaN(), 0}}, "", false);
    EXPECT_FALSE(subpath == subpath);
}

TEST(PlexaSegment, LineIsNoBezier)
{
    const Segment line = Segment::Line({1, 2});
    EXPECT_TRUE(line.IsLine());
    EXPECT_FALSE(line.IsBezier());
    EXPECT_EQ(line.GetEnd(), Segment::Point(1, 2));
}

TEST(PlexaSegment, BezierIsNoLine)
{
    const Segment curve = Segment::Bezier({1, 2}, {3, 4}, {5, 6});
    EXPECT_FALSE(curve.IsLine());
    EXPECT_TRUE(curve.IsBezier());
    EXPECT_EQ(curve.GetFirstControlPoint(), Segment::Point(1, 2));
    EXPECT_EQ(curve.GetSecondControlPoint(), Segment::Point(3, 4));
    EXPECT_EQ(curve.GetEnd(), Segment::Point(5, 6));
}

} // namespace
