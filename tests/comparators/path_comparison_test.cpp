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
#include <limits>
#include <sstream>
#include <vector>

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

/// The reports about the shapes of two paths by the plain rule: the final shapes decide, the given ones are
/// told.
std::vector<std::string> PlainlyCompared(const OrvDoc::Path& left, const OrvDoc::Path& right)
{
    const auto word = [](Plexa::WindingRule rule) {
        return std::string(rule == Plexa::WindingRule::EvenOdd ? "EvenOdd" : "NonZero");
    };
    std::vector<std::string> lines;
    const Shape leftShape = left.TransformedCompound(nullptr);
    const Shape rightShape = right.TransformedCompound(nullptr);
    if (leftShape->GetWindingRule() != rightShape->GetWindingRule())
        lines.push_back("ObjectWindingRule: '" + word(leftShape->GetWindingRule()) + "' vs '" +
                        word(rightShape->GetWindingRule()) + "'");
    const std::string leftText = Print(left.DefiningCompound());
    const std::string rightText = Print(right.DefiningCompound());
    if (!Comparators::CompareCompounds(*leftShape, *rightShape) && leftText != rightText)
        lines.push_back("ObjectShape: '" + leftText + "' vs '" + rightText + "'");
    return lines;
}

/// Shapes whose numbers are equal, close or unlike in every way that numbers can be.
std::vector<Shape> PeculiarShapes()
{
    const double quiet = std::nan("");
    const double payload = std::nan("7");
    const double infinity = std::numeric_limits<double>::infinity();
    std::vector<Shape> shapes = {std::make_shared<const Plexa::Compound>(),
                                 Draw([](CompoundBuilder& builder) { builder.MoveTo(Point(0.0, 0.0)); })};
    for (double x :
         {0.0, -0.0, 29.9, 30.0, std::nextafter(30.0, 0.0), quiet, -quiet, payload, infinity, -infinity}) {
        shapes.push_back(LineTo(x, 0.0));
        shapes.push_back(LineTo(1.0, x));
        shapes.push_back(CurveTo(Point(x, 0.0), Point(0.0, 0.0), Point(0.0, 0.0)));
        shapes.push_back(CurveTo(Point(quiet, 0.0), Point(0.0, x), Point(0.0, 0.0)));
        const auto closed = [x](CompoundBuilder& builder) {
            builder.MoveTo(Point(x, 0.0));
            builder.Close();
        };
        shapes.push_back(Draw(closed));
        shapes.push_back(Draw(closed, Plexa::WindingRule::EvenOdd));
        shapes.push_back(Both(shapes.back(), LineTo(x, quiet)));
    }
    return shapes;
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
    // Whatever a line may have as its control points.
    for (const Point& control : {Point(0.0, 0.0), Point(100.0, 0.0)})
        EXPECT_FALSE(Match(LineTo(100.0, 0.0), CurveTo(control, control, Point(100.0, 0.0))));
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

TEST(ComparePath, ReportsWhatThePlainRuleSays)
{
    // Pairs that are given alike take a shorter way, which nobody may notice.
    const std::vector<Matrix> matrices = {Matrix(), Matrix(1.0, 0.0, 0.0, 1.0, 500.0, 0.0),
                                          Matrix(0.0, 0.0, 0.0, 0.0, 0.0, 0.0),
                                          Matrix(std::nan(""), 0.0, 0.0, 1.0, 0.0, 0.0)};
    std::vector<std::unique_ptr<OrvDoc::Path>> paths;
    for (const Shape& shape : PeculiarShapes()) {
        for (const Matrix& matrix : matrices) {
            paths.push_back(PathOf(shape));
            paths.back()->SetTransformation(matrix);
        }
    }
    std::size_t reported = 0;
    for (const auto& left : paths) {
        for (const auto& right : paths) {
            std::vector<std::string> lines;
            for (const std::string& line : CompareLines<OrvDoc::ContentObject>(*left, *right)) {
                if (line.rfind("ObjectAbsoluteTransformation", 0) != 0)
                    lines.push_back(line);
            }
            ASSERT_EQ(lines, PlainlyCompared(*left, *right));
            reported += lines.size();
        }
    }
    EXPECT_GT(reported, 0u);
}

TEST(ComparePath, BothZerosAreOneUnlessTheShapeIsToldForAnotherReason)
{
    ExpectObjectReports(*PathOf(LineTo(0.0, 0.0)), *PathOf(LineTo(-0.0, 0.0)), {});
    // Infinite numbers match nothing, themselves included.
    const Shape left = LineTo(0.0, std::numeric_limits<double>::infinity());
    const Shape right = LineTo(-0.0, std::numeric_limits<double>::infinity());
    ExpectObjectReports(*PathOf(left), *PathOf(right),
                        {Difference("ObjectShape", Print(left), Print(right))});
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
