#include "comparators/path_comparison.h"

#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <plexa/compound.h>
#include <plexa/compound_builder.h>
#include <plexa/geometry.h>
#include <plexa/subpath.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

using Shape = std::shared_ptr<const Plexa::Compound>;
using Plexa::CompoundBuilder;

Shape Draw(const std::function<void(CompoundBuilder&)>& draw,
           Plexa::WindingRule rule = Plexa::WindingRule::NonZero)
{
    CompoundBuilder builder;
    draw(builder);
    return builder.Finish(rule);
}

/// A line from the origin to that point.
Shape LineTo(double x, double y)
{
    return Draw([=](CompoundBuilder& builder) {
        builder.MoveTo(Point(0.0, 0.0));
        builder.LineTo(Point(x, y));
    });
}

/// A curve from the origin, with its control points and its end.
Shape CurveTo(const Point& first, const Point& second, const Point& end)
{
    return Draw([=](CompoundBuilder& builder) {
        builder.MoveTo(Point(0.0, 0.0));
        builder.CurveTo(first, second, end);
    });
}

/// The subpaths of two shapes in one.
Shape Both(const Shape& first, const Shape& second)
{
    std::vector<std::shared_ptr<const Plexa::Subpath>> subpaths = first->GetSubpaths();
    subpaths.insert(subpaths.end(), second->GetSubpaths().begin(), second->GetSubpaths().end());
    return std::make_shared<const Plexa::Compound>(std::move(subpaths), Plexa::WindingRule::NonZero);
}

/// Both ways round.
bool Match(const Shape& left, const Shape& right)
{
    const bool result = Comparators::CompareCompounds(*left, *right);
    EXPECT_EQ(Comparators::CompareCompounds(*right, *left), result) << "right against left";
    return result;
}

std::unique_ptr<OrvDoc::Path> PathOf(Shape shape)
{
    return std::make_unique<OrvDoc::Path>(std::move(shape));
}

std::string Print(const Shape& shape)
{
    std::ostringstream stream;
    stream << shape;
    return stream.str();
}

void ExpectObjectReports(const OrvDoc::ContentObject& left, const OrvDoc::ContentObject& right,
                         const std::vector<ExpectedReport>& expected)
{
    ExpectReports<OrvDoc::ContentObject>(left, right, expected);
}

void DrawTriangle(CompoundBuilder& builder)
{
    builder.MoveTo(Point(0.0, 0.0));
    builder.LineTo(Point(1000.0, 0.0));
    builder.LineTo(Point(0.0, 1000.0));
}

} // namespace

TEST(Coordinates, JustBelowThirtyMilliPointsApartMatch)
{
    const double below = std::nextafter(30.0, 0.0);
    for (const Shape& shape :
         {LineTo(29.9, 0.0), LineTo(0.0, 29.9), LineTo(-29.9, 29.9), LineTo(below, 0.0), LineTo(0.0, -below)})
        EXPECT_TRUE(Match(LineTo(0.0, 0.0), shape));
}

TEST(Coordinates, ThirtyMilliPointsApartDiffer)
{
    for (const Shape& shape : {LineTo(30.0, 0.0), LineTo(0.0, 30.0), LineTo(-30.0, 0.0), LineTo(0.0, -30.0)})
        EXPECT_FALSE(Match(LineTo(0.0, 0.0), shape));
}

TEST(Coordinates, EachIsComparedOnItsOwn)
{
    EXPECT_TRUE(Match(LineTo(0.0, 0.0), LineTo(29.0, 29.0)));
}

TEST(Coordinates, ThatAreNoNumbersMatchNothing)
{
    const Shape shape = LineTo(std::nan(""), 0.0);
    EXPECT_FALSE(Match(shape, shape));
}

TEST(Segments, ControlPointsCount)
{
    const Point end(100.0, 100.0);
    const Shape curve = CurveTo(Point(0.0, 0.0), Point(0.0, 0.0), end);
    EXPECT_TRUE(Match(curve, CurveTo(Point(29.0, 29.0), Point(-29.0, 29.0), end)));
    EXPECT_FALSE(Match(curve, CurveTo(Point(30.0, 0.0), Point(0.0, 0.0), end)));
    EXPECT_FALSE(Match(curve, CurveTo(Point(0.0, 0.0), Point(0.0, 30.0), end)));
    EXPECT_FALSE(Match(curve, CurveTo(Point(0.0, 0.0), Point(0.0, 0.0), Point(130.0, 100.0))));
}

TEST(Segments, ALineAndACurveDiffer)
{
    EXPECT_FALSE(Match(LineTo(100.0, 0.0), CurveTo(Point(0.0, 0.0), Point(100.0, 0.0), Point(100.0, 0.0))));
}

TEST(Segments, AnotherNumberOfThemIsADifference)
{
    const Shape longer = Draw([](CompoundBuilder& builder) {
        builder.MoveTo(Point(0.0, 0.0));
        builder.LineTo(Point(100.0, 0.0));
        builder.LineTo(Point(100.0, 0.0));
    });
    EXPECT_FALSE(Match(LineTo(100.0, 0.0), longer));
}

TEST(Segments, TheStartPointCounts)
{
    const Shape elsewhere = Draw([](CompoundBuilder& builder) {
        builder.MoveTo(Point(0.0, 500.0));
        builder.LineTo(Point(100.0, 0.0));
    });
    EXPECT_FALSE(Match(LineTo(100.0, 0.0), elsewhere));
}

TEST(Subpaths, OfDifferentNumberDiffer)
{
    const Shape one = LineTo(100.0, 0.0);
    const Shape two = Both(one, one);
    EXPECT_FALSE(Match(one, two));
    EXPECT_TRUE(Match(two, two));
}

TEST(Subpaths, ArePairedByPosition)
{
    const Shape one = LineTo(100.0, 0.0);
    const Shape other = LineTo(0.0, 100.0);
    EXPECT_FALSE(Match(Both(one, other), Both(other, one)));
}

TEST(Subpaths, EmptyOnesMatch)
{
    const Plexa::Subpath empty;
    EXPECT_TRUE(Comparators::CompareSubpaths(empty, empty));
    EXPECT_FALSE(Comparators::CompareSubpaths(empty, *LineTo(1.0, 1.0)->GetSubpaths().front()));
    EXPECT_FALSE(Comparators::CompareSubpaths(*LineTo(1.0, 1.0)->GetSubpaths().front(), empty));
}

TEST(Subpaths, AnImpliedCloseAndAStatedOneDiffer)
{
    const Shape implied = Draw([](CompoundBuilder& builder) {
        DrawTriangle(builder);
        builder.Close();
    });
    const Shape stated = Draw([](CompoundBuilder& builder) {
        DrawTriangle(builder);
        builder.LineTo(Point(0.0, 0.0));
    });
    EXPECT_FALSE(Match(implied, stated));
    EXPECT_TRUE(Match(implied, implied));
    ExpectObjectReports(*PathOf(implied), *PathOf(stated),
                        {Difference("ObjectShape", Print(implied), Print(stated))});
}

TEST(ComparePath, ShowsTheShapesAsTheyWereGiven)
{
    const Shape left = LineTo(100.0, 0.0);
    const Shape right = LineTo(200.0, 0.0);
    ExpectObjectReports(*PathOf(left), *PathOf(right),
                        {Difference("ObjectShape", Print(left), Print(right))});
}

TEST(ComparePath, AMovedPathIsToldByItsPositionAlone)
{
    const Shape shape = LineTo(100.0, 0.0);
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*PathOf(shape)),
                         *Moved(PathOf(shape), 500.0, 0.0), AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(ComparePath, ShapesAreComparedInTheirFinalPosition)
{
    // Two shapes that come to lie on each other are equal, whatever was given. Both transformations take (1,
    // 1) to the same point.
    auto left = PathOf(LineTo(100.0, 0.0));
    left->SetTransformation(Matrix(2.0, 0.0, 0.0, 2.0, 0.0, 0.0));
    auto right = PathOf(LineTo(200.0, 0.0));
    right->SetTransformation(Matrix(1.0, 0.0, 0.0, 1.0, 0.0, 0.0));
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*left), *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectAbsoluteTransformation"));
}

TEST(ComparePath, TheWindingRuleComesFirstAndDoesNotEndTheComparison)
{
    const Shape left =
        Draw([](CompoundBuilder& builder) { DrawTriangle(builder); }, Plexa::WindingRule::EvenOdd);
    const Shape right = LineTo(100.0, 0.0);
    ExpectObjectReports(*PathOf(left), *PathOf(right),
                        {Difference("ObjectWindingRule", "EvenOdd", "NonZero"),
                         Difference("ObjectShape", Print(left), Print(right))});
}

TEST(ComparePath, TheWindingRuleAloneIsNoDifferenceOfShape)
{
    const Shape evenOdd = Draw(DrawTriangle, Plexa::WindingRule::EvenOdd);
    const Shape nonZero = Draw(DrawTriangle, Plexa::WindingRule::NonZero);
    ExpectObjectReports(*PathOf(evenOdd), *PathOf(nonZero),
                        {Difference("ObjectWindingRule", "EvenOdd", "NonZero")});
}

TEST(ComparePath, PathsWithoutSubpathsAreEqual)
{
    const auto empty = std::make_shared<const Plexa::Compound>();
    ExpectObjectReports(*PathOf(empty), *PathOf(empty), {});
}

TEST(ComparePath, ShapesGivenAlikeAreNeverReported)
{
    const Shape shape = LineTo(std::nan(""), 0.0);
    ExpectObjectReports(*PathOf(shape), *PathOf(LineTo(std::nan(""), 0.0)), {});
}

TEST(ComparePath, ComesAfterThePaints)
{
    auto left = PathOf(LineTo(100.0, 0.0));
    left->SetStrokePaint(Flat(Tints({{"Black", 1.0f}})));
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*left),
                         *PathOf(LineTo(200.0, 0.0)), AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectHasStroke", "ObjectShape"));
}

} // namespace HarrowSupport::Testing
