#include "comparators/shading_comparison.h"

#include "paint_reports.h"
#include "support/paint_makers.h"
#include "support/recording_reporter.h"

#include <orv_color/color_policies.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace HarrowSupport::Testing
{

using Comparators::ComponentPair;
using Comparators::LineUpBackgrounds;
using ::testing::ElementsAre;
using ::testing::Pair;

namespace
{

using Axial = OrvPaint::AxialShadingPaint::Factory;
using Radial = OrvPaint::RadialShadingPaint::Factory;
using PdfBox = Plexa::RectangleBase<Plexa::PdfCoordinateSystem>;
using Background = std::vector<OrvColor::Component>;

const double belowThirty = std::nextafter(30.0, 0.0);

std::vector<std::string> Labels(const PaintPointer& left, const PaintPointer& right)
{
    RecordingReporter reporter;
    Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*Filled(left)), *Filled(right),
                         AllOptions());
    return reporter.Labels();
}

std::string Text(const FunctionPointer& function)
{
    std::ostringstream stream;
    stream << *function;
    return stream.str();
}

PaintPointer BoxedAxial(const PdfBox& box)
{
    return AnAxialShading().SetBoundingBox(box).Get();
}

PaintPointer AxialAt(const Point& start, const Point& end)
{
    return AnAxialShading().SetPoints({start, end}).Get();
}

PaintPointer RadialAt(const Point& first, const Point& second)
{
    return ARadialShading().SetCenters({first, second}).Get();
}

PaintPointer RadialOf(double first, double second)
{
    return ARadialShading().SetRadii({first, second}).Get();
}

/// A shading of a kind that has nothing of its own.
class OtherShading : public OrvPaint::ShadingPaint
{
public:
    explicit OtherShading(Mapping mapping, const Matrix& transformation = Matrix())
        : ShadingPaint(Type::OtherShading, With(std::move(mapping), transformation))
    {}

private:
    static Common With(Mapping mapping, const Matrix& transformation)
    {
        Common common;
        common.mapping = std::move(mapping);
        common.transformation = transformation;
        return common;
    }
};

/// A transformation with its numbers moved by units in the last place.
Matrix OffBy(int units)
{
    double number = 2.0;
    for (int i = 0; i < units; ++i)
        number = std::nextafter(number, 3.0);
    return Matrix(number, 0.0, 0.0, 1.0, 0.0, 0.0);
}

} // namespace

TEST(CompareShadings, EqualOnesGiveNoReport)
{
    ExpectPaintReports(AnAxialShading().Get(), AnAxialShading().Get(), {});
    ExpectPaintReports(ARadialShading().Get(), ARadialShading().Get(), {});
    ExpectPaintReports(std::make_shared<OtherShading>(Components({{"Cyan", 0}})),
                       std::make_shared<OtherShading>(Components({{"Cyan", 0}})), {});
}

TEST(CompareShadings, OfTwoKindsHaveNothingElseToCompare)
{
    ExpectPaintReports(AnAxialShading().SetTransformation(OffBy(9)).Get(), ARadialShading().Get(),
                       {Difference("PaintType", "AxialShading", "RadialShading")});
    ExpectPaintReports(Flat(Tints({{"Spot", 1.0f}})), AnAxialShading().Get(),
                       {Difference("PaintType", "Flat", "AxialShading")});
}

TEST(CompareShadings, TransformationsMayDifferByFiveUnitsInTheLastPlace)
{
    const auto turned = [](int units) { return AnAxialShading().SetTransformation(OffBy(units)).Get(); };
    ExpectPaintReports(turned(0), turned(5), {});
    ExpectPaintReports(turned(0), turned(6),
                       {Difference("PaintTransformation", "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                   "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]")});
}

TEST(CompareShadings, EachEdgeOfTheBoxCountsInMilliPoints)
{
    // The width of the box grows as its left edge moves, so that one edge alone is elsewhere.
    const double tolerance = 0.0011;
    const auto box = [](double left, double bottom, double right, double top) {
        return BoxedAxial(PdfBox(left, bottom, right - left, top - bottom));
    };
    const PaintPointer origin = box(0.0, 0.0, 0.0, 0.0);
    for (const double direction : {1.0, -1.0}) {
        const double within = direction * std::nextafter(tolerance, 0.0);
        const double off = direction * tolerance;
        for (int edge = 0; edge < 4; ++edge) {
            const auto moved = [&](double by) {
                return box(edge == 0 ? by : 0.0, edge == 1 ? by : 0.0, edge == 2 ? by : 0.0,
                           edge == 3 ? by : 0.0);
            };
            EXPECT_THAT(Labels(origin, moved(within)), ElementsAre()) << "edge " << edge;
            EXPECT_THAT(Labels(origin, moved(off)), ElementsAre("ShadingPaintBoundingBox"))
                << "edge " << edge;
        }
    }
}

TEST(CompareShadings, EdgesOfTheBoxCountAndNotItsExtent)
{
    // A milli-point further at either end makes two of width and height.
    ExpectPaintReports(BoxedAxial(PdfBox(1.0, 1.0, 1.0, 1.0)), BoxedAxial(PdfBox(0.999, 0.999, 1.002, 1.002)),
                       {});
    EXPECT_THAT(Labels(BoxedAxial(PdfBox(1.0, 1.0, 1.0, 1.0)), BoxedAxial(PdfBox(1.001, 1.0, 1.001, 1.0))),
                ElementsAre("ShadingPaintBoundingBox"));
    EXPECT_THAT(Labels(BoxedAxial(PdfBox(1.0, 1.0, 1.0, 1.0)), BoxedAxial(PdfBox(1.0, 1.001, 1.0, 1.001))),
                ElementsAre("ShadingPaintBoundingBox"));
}

TEST(CompareShadings, BoxesAreShownInPoints)
{
    ExpectPaintReports(BoxedAxial(PdfBox(1.0, 2.0, 10.0, 20.0)), BoxedAxial(PdfBox(1.0, 2.0, 10.0, 21.0)),
                       {Difference("ShadingPaintBoundingBox", "[ L: 1, T: 22, R: 11, B: 2 (W: 10, H 20) ]",
                                   "[ L: 1, T: 23, R: 11, B: 2 (W: 10, H 21) ]")});
}

TEST(CompareShadings, ABoxThatWasNeverSetIsComparedByItsNumbers)
{
    ExpectPaintReports(BoxedAxial(PdfBox()), BoxedAxial(PdfBox(0.0, 0.0, 0.0, 0.0)), {});
    ExpectPaintReports(BoxedAxial(PdfBox()), BoxedAxial(PdfBox(0.0, 0.0, 1.0, 1.0)),
                       {Difference("ShadingPaintBoundingBox", "[ <initial/default state> ]",
                                   "[ L: 0, T: 1, R: 1, B: 0 (W: 1, H 1) ]")});
}

TEST(CompareShadings, BoxesThatAreNoNumbersMatchNothing)
{
    const PaintPointer paint = BoxedAxial(PdfBox(std::nan(""), 0.0, 1.0, 1.0));
    EXPECT_THAT(Labels(paint, paint), ElementsAre("ShadingPaintBoundingBox"));
}

TEST(CompareShadings, ABackgroundOnOneSideIsADifference)
{
    ExpectPaintReports(AnAxialShading().SetBackground(Background{0.0f}).Get(), AnAxialShading().Get(),
                       {Difference("ShadingPaintBackgroundDefined", "1", "0")});
}

TEST(CompareShadings, BackgroundsCloserThanTheToleranceAreEqual)
{
    const auto backed = [](float tint) { return AnAxialShading().SetBackground(Background{tint}).Get(); };
    ExpectPaintReports(backed(0.0f), backed(std::nextafter(1e-5f, 0.0f)), {});
    ExpectPaintReports(backed(0.0f), backed(1e-5f), {Difference("ShadingPaintBackground", "(0)", "(1e-05)")});
    EXPECT_THAT(Labels(backed(std::nanf("")), backed(std::nanf(""))), ElementsAre("ShadingPaintBackground"));
}

TEST(CompareShadings, SeparationsInAnotherOrderAreLinedUp)
{
    const PaintPointer left =
        AxialShadingOf(Components({{"Cyan", 0}, {"Spot", 1}}), Ramp({0.0f, 0.25f}, {1.0f, 0.5f}))
            .SetBackground(Background{0.5f, 0.75f})
            .Get();
    const PaintPointer right =
        AxialShadingOf(Components({{"Spot", 0}, {"Cyan", 1}}), Ramp({0.25f, 0.0f}, {0.5f, 1.0f}))
            .SetBackground(Background{0.75f, 0.5f})
            .Get();
    ExpectPaintReports(left, right, {});
}

TEST(CompareShadings, BackgroundsAreShownInTheOrderOfTheNames)
{
    const auto backed = [](Background background) {
        return AxialShadingOf(Components({{"Spot", 0}, {"Cyan", 1}}), Ramp({0.0f, 0.0f}, {1.0f, 1.0f}))
            .SetBackground(std::move(background))
            .Get();
    };
    ExpectPaintReports(backed({0.25f, 0.5f}), backed({0.75f, 0.5f}),
                       {Difference("ShadingPaintBackground", "(0.5, 0.25)", "(0.5, 0.75)")});
}

TEST(CompareShadings, PositionsInsteadOfNamesAreADifference)
{
    const FunctionPointer function = Ramp({0.0f, 0.25f}, {1.0f, 0.5f});
    ExpectPaintReports(AxialShadingOf(Components({{"Cyan", 0}, {"Spot", 1}}), function).Get(),
                       AxialShadingOf(Components({{"Cyan", 1}, {"Spot", 0}}), function).Get(),
                       {Difference("ShadingPaintFunction", Text(function), Text(function))});
}

TEST(CompareShadings, MappingsThatDoNotMatchLeaveBackgroundAndFunctionOut)
{
    const PaintPointer left = AxialShadingOf(Components({{"Cyan", 0}}), Ramp({0.0f}, {1.0f}))
                                  .SetBackground(Background{0.0f})
                                  .SetExtends({true, false})
                                  .Get();
    const PaintPointer right = AxialShadingOf(Components({{"Spot", 0}}), Ramp({0.5f}, {1.0f}, 2.0))
                                   .SetExtends({false, true})
                                   .SetPoints({Point(0.0, 0.0), Point(0.0, 500.0)})
                                   .Get();
    ExpectPaintReports(left, right,
                       {Difference("PaintColorSpace", "(Cyan)", "(Spot)"),
                        Difference("ImageChannelsMapped", "(Cyan @ 0)", "(Spot @ 0)"),
                        Difference("AxialShadingPaintPoints", "([X: 0, Y: 0], [X: 10000, Y: 0])",
                                   "([X: 0, Y: 0], [X: 0, Y: 500])"),
                        Difference("ShadingPaintExtends", "(1, 0)", "(0, 1)")});
}

TEST(CompareShadings, MappingsWithoutCommonFormLeaveTheFunctionOut)
{
    const PaintPointer all = AxialShadingOf(ComponentForAll(0), Ramp({0.0f}, {1.0f})).Get();
    const PaintPointer two =
        AxialShadingOf(Components({{"a", 0}, {"b", 1}}), Ramp({0.5f, 0.5f}, {1.0f, 1.0f})).Get();
    ExpectPaintReports(all, two,
                       {Difference("PaintColorSpace", "(All)", "(a, b)"),
                        Difference("ImageChannelMapping", "(All @ 0)", "(a @ 0, b @ 1)")});
}

TEST(CompareShadings, WithoutAnyComponentHaveWhatIsCommonToTheirFunctions)
{
    const auto shading = [](const FunctionPointer& function, float tint) {
        return AxialShadingOf(ComponentForAll(OrvColor::Unmapped), function)
            .SetBackground(Background{tint})
            .Get();
    };
    ExpectPaintReports(shading(Ramp({0.0f}, {1.0f}), 0.0f), shading(Ramp({0.5f}, {0.5f}), 1.0f), {});
    const FunctionPointer one = Ramp({0.0f}, {1.0f});
    const FunctionPointer other = Ramp({0.0f}, {1.0f}, 2.0);
    ExpectPaintReports(shading(one, 0.0f), shading(other, 0.0f),
                       {Difference("ShadingPaintFunction", Text(one), Text(other))});
}

TEST(CompareShadings, AComponentForAllIsLinedUpWithTheOnlyOne)
{
    const PaintPointer all = AxialShadingOf(ComponentForAll(1), Ramp({0.5f, 0.0f}, {0.5f, 1.0f}))
                                 .SetBackground(Background{0.5f, 0.25f})
                                 .Get();
    const PaintPointer single =
        AxialShadingOf(Components({{"a", 0}}), Ramp({0.0f}, {1.0f})).SetBackground(Background{0.25f}).Get();
    ExpectPaintReports(
        all, single,
        {Difference("PaintColorSpace", "(All)", "(a)"), Difference("ImageRegistrationColorSpace", "1", "0")});
}

TEST(CompareShadings, OverprintIsToldOfSpaceAndMapping)
{
    ExpectPaintReports(
        AxialShadingOf(Components({{"a", 0}}, true), Ramp({0.0f}, {1.0f})).Get(),
        AxialShadingOf(Components({{"a", 0}}), Ramp({0.0f}, {1.0f})).Get(),
        {Difference("PaintColorSpace", "(a) Overprint", "(a)"), Difference("ImageOverprint", "1", "0")});
}

TEST(CompareShadings, OfOtherKindsHaveWhatAllHave)
{
    ExpectPaintReports(std::make_shared<OtherShading>(Components({{"a", 0}})),
                       std::make_shared<OtherShading>(Components({{"b", 0}}), OffBy(0)),
                       {Difference("PaintColorSpace", "(a)", "(b)"),
                        Difference("PaintTransformation", "[A: 1, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                   "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]"),
                        Difference("ImageChannelsMapped", "(a @ 0)", "(b @ 0)")});
}

TEST(CompareAxialShadings, EachCoordinateMayBeOffByLessThanThirty)
{
    const PaintPointer origin = AxialAt(Point(0.0, 0.0), Point(0.0, 0.0));
    const auto moved = [](int coordinate, double by) {
        return AxialAt(Point(coordinate == 0 ? by : 0.0, coordinate == 1 ? by : 0.0),
                       Point(coordinate == 2 ? by : 0.0, coordinate == 3 ? by : 0.0));
    };
    for (int coordinate = 0; coordinate < 4; ++coordinate) {
        EXPECT_THAT(Labels(origin, moved(coordinate, belowThirty)), ElementsAre());
        EXPECT_THAT(Labels(origin, moved(coordinate, -belowThirty)), ElementsAre());
        EXPECT_THAT(Labels(origin, moved(coordinate, 30.0)), ElementsAre("AxialShadingPaintPoints"));
        EXPECT_THAT(Labels(origin, moved(coordinate, -30.0)), ElementsAre("AxialShadingPaintPoints"));
    }
}

TEST(CompareAxialShadings, EachCoordinateCountsOnItsOwn)
{
    ExpectPaintReports(AxialAt(Point(0.0, 0.0), Point(0.0, 0.0)),
                       AxialAt(Point(29.0, 29.0), Point(29.0, 29.0)), {});
}

TEST(CompareAxialShadings, AnotherExtendIsADifference)
{
    const auto extended = [](bool start, bool end) {
        return AnAxialShading().SetExtends({start, end}).Get();
    };
    ExpectPaintReports(extended(true, false), extended(false, false),
                       {Difference("ShadingPaintExtends", "(1, 0)", "(0, 0)")});
    ExpectPaintReports(extended(true, false), extended(true, true),
                       {Difference("ShadingPaintExtends", "(1, 0)", "(1, 1)")});
}

TEST(CompareAxialShadings, AllDifferencesComeInTheirOrder)
{
    const FunctionPointer other = Ramp({0.0f}, {0.5f});
    const PaintPointer right = AxialShadingOf(Components({{"Cyan", 0}}, true), other)
                                   .SetTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0))
                                   .SetBoundingBox(PdfBox(0.0, 0.0, 1.0, 1.0))
                                   .SetBackground(Background{0.5f})
                                   .SetPoints({Point(0.0, 0.0), Point(500.0, 0.0)})
                                   .SetExtends({true, true})
                                   .Get();
    EXPECT_THAT(Labels(AnAxialShading().SetBackground(Background{0.0f}).Get(), right),
                ElementsAre("PaintColorSpace", "PaintTransformation", "ShadingPaintBoundingBox",
                            "ImageOverprint", "ShadingPaintBackground", "AxialShadingPaintPoints",
                            "ShadingPaintExtends", "ShadingPaintFunction"));
}

TEST(CompareAxialShadings, FunctionsAreShownByTheLibrary)
{
    const FunctionPointer one = Ramp({0.0f}, {1.0f});
    const FunctionPointer other = Ramp({0.0f}, {1.0f}, 2.0);
    ExpectPaintReports(AnAxialShading().SetFunction(one).Get(), AnAxialShading().SetFunction(other).Get(),
                       {Difference("ShadingPaintFunction", Text(one), Text(other))});
}

TEST(CompareRadialShadings, EachCoordinateOfACenterMayBeOffByLessThanThirty)
{
    const PaintPointer origin = RadialAt(Point(0.0, 0.0), Point(0.0, 0.0));
    const auto moved = [](int coordinate, double by) {
        return RadialAt(Point(coordinate == 0 ? by : 0.0, coordinate == 1 ? by : 0.0),
                        Point(coordinate == 2 ? by : 0.0, coordinate == 3 ? by : 0.0));
    };
    for (int coordinate = 0; coordinate < 4; ++coordinate) {
        EXPECT_THAT(Labels(origin, moved(coordinate, belowThirty)), ElementsAre());
        EXPECT_THAT(Labels(origin, moved(coordinate, 30.0)), ElementsAre("RadialShadingPaintCenters"));
    }
    ExpectPaintReports(origin, moved(3, 30.0),
                       {Difference("RadialShadingPaintCenters", "([X: 0, Y: 0], [X: 0, Y: 0])",
                                   "([X: 0, Y: 0], [X: 0, Y: 30])")});
}

TEST(CompareRadialShadings, RadiiHaveATighterTolerance)
{
    const double within = std::nextafter(1.1, 0.0);
    ExpectPaintReports(RadialOf(0.0, 0.0), RadialOf(within, within), {});
    ExpectPaintReports(RadialOf(0.0, 0.0), RadialOf(1.1, 0.0),
                       {Difference("RadialShadingPaintRadii", "(0, 0)", "(1.1, 0)")});
    ExpectPaintReports(RadialOf(0.0, 0.0), RadialOf(0.0, 1.1),
                       {Difference("RadialShadingPaintRadii", "(0, 0)", "(0, 1.1)")});
    EXPECT_THAT(Labels(RadialOf(std::nan(""), 0.0), RadialOf(std::nan(""), 0.0)),
                ElementsAre("RadialShadingPaintRadii"));
}

TEST(CompareRadialShadings, AllDifferencesComeInTheirOrder)
{
    const PaintPointer right = ARadialShading()
                                   .SetTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0))
                                   .SetBoundingBox(PdfBox(0.0, 0.0, 1.0, 1.0))
                                   .SetBackground(Background{0.5f})
                                   .SetCenters({Point(0.0, 0.0), Point(500.0, 0.0)})
                                   .SetRadii({10.0, 20.0})
                                   .SetExtends({true, true})
                                   .SetFunction(Ramp({0.0f}, {0.5f}))
                                   .Get();
    EXPECT_THAT(Labels(ARadialShading().Get(), right),
                ElementsAre("PaintTransformation", "ShadingPaintBoundingBox", "ShadingPaintBackgroundDefined",
                            "RadialShadingPaintCenters", "RadialShadingPaintRadii", "ShadingPaintExtends",
                            "ShadingPaintFunction"));
}

TEST(LineUpBackgrounds, TakesComponentsByTheirIndex)
{
    EXPECT_THAT(LineUpBackgrounds({{0, 1}, {1, 0}}, {0.25f, 0.5f}, {0.75f, 1.0f}),
                Pair(Background{0.25f, 0.5f}, Background{1.0f, 0.75f}));
}

TEST(LineUpBackgrounds, HasZeroForAComponentThatASideDoesNotHave)
{
    EXPECT_THAT(LineUpBackgrounds({{OrvColor::Unmapped, 0}, {0, OrvColor::Unmapped}}, {0.25f}, {0.75f}),
                Pair(Background{0.0f, 0.25f}, Background{0.75f, 0.0f}));
    EXPECT_THAT(LineUpBackgrounds({{3, 0}}, {0.25f}, {0.75f}), Pair(Background{0.0f}, Background{0.75f}));
}

TEST(LineUpBackgrounds, HasNothingWithoutPairs)
{
    EXPECT_THAT(LineUpBackgrounds({}, {0.25f}, {}), Pair(Background{}, Background{}));
}

} // namespace HarrowSupport::Testing
