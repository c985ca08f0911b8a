#include "comparators/pattern_comparison.h"

#include "comparators/comparison_context.h"
#include "paint_reports.h"
#include "support/paint_makers.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

namespace
{

using Factory = OrvPaint::PatternPaint::Factory;

const ExpectedReport metWithAnotherRight = Difference("PatternPaintReuse", "1", "0");
const ExpectedReport metWithAnotherLeft = Difference("PatternPaintReuse", "0", "1");

Comparators::Options WithoutContentReuse()
{
    Comparators::Options options = AllOptions();
    options.comparePatternContentReuse = false;
    return options;
}

class Patterns : public ::testing::Test
{
protected:
    Factory Left(const std::string& name = "cell") { return APattern(*left, name); }
    Factory Right(const std::string& name = "cell") { return APattern(*right, name); }

    /// A path on each page, filled with these.
    void Use(const PaintPointer& leftPaint, const PaintPointer& rightPaint)
    {
        Fill(ContentOf(*left), Filled(leftPaint));
        Fill(ContentOf(*right), Filled(rightPaint));
    }

    void Expect(const std::vector<ExpectedReport>& expected,
                const Comparators::Options& options = WithoutContentReuse())
    {
        ExpectReports(*left, *right, expected, options);
    }

    static void ExpectPaintReports(const Factory& leftFactory, const Factory& rightFactory,
                                   const std::vector<ExpectedReport>& expected)
    {
        Testing::ExpectPaintReports(leftFactory.Get(), rightFactory.Get(), expected);
    }

    const std::unique_ptr<OrvDoc::Document> left = NewDocument();
    const std::unique_ptr<OrvDoc::Document> right = NewDocument();
};

} // namespace

TEST_F(Patterns, EqualOnesGiveNoReport)
{
    ExpectPaintReports(Left(), Right(), {});
}

TEST_F(Patterns, TransformationsMayDifferByFiveUnitsInTheLastPlace)
{
    double five = 2.0;
    for (int i = 0; i < 5; ++i)
        five = std::nextafter(five, 3.0);
    const Matrix two(2.0, 0.0, 0.0, 1.0, 0.0, 0.0);
    ExpectPaintReports(Left().SetTransformation(two),
                       Right().SetTransformation(Matrix(five, 0.0, 0.0, 1.0, 0.0, 0.0)), {});
    ExpectPaintReports(Left().SetTransformation(two),
                       Right().SetTransformation(Matrix(std::nextafter(five, 3.0), 0.0, 0.0, 1.0, 0.0, 0.0)),
                       {Difference("PaintTransformation", "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]",
                                   "[A: 2, B: 0, C: 0, D: 1, X: 0, Y: 0]")});
}

TEST_F(Patterns, AColorOnOneSideMarksAnUncoloredPattern)
{
    ExpectPaintReports(AnUncoloredPattern(*left, Tints({{"Spot", 1.0f}})),
                       Factory(Drawing(*right, OrvDoc::Content::Type::ColoredPatternContent, Square("cell"))),
                       {Difference("ContentType", "UncoloredPatternContent", "ColoredPatternContent"),
                        Difference("PaintColorSpace", "(Spot)", "(Empty)"),
                        Difference("PatternPaintIsUncolored", "1", "0")});
}

TEST_F(Patterns, ColorsOfUncoloredOnesAreCompared)
{
    ExpectPaintReports(AnUncoloredPattern(*left, Tints({{"a", 0.0f}})),
                       AnUncoloredPattern(*right, Tints({{"a", std::nextafter(1e-5f, 0.0f)}})), {});
    ExpectPaintReports(AnUncoloredPattern(*left, Tints({{"a", 1.0f}})),
                       AnUncoloredPattern(*right, Tints({{"a", 0.5f}})),
                       {Difference("PaintColor", "(a @ 100%)", "(a @ 50%)")});
    ExpectPaintReports(
        AnUncoloredPattern(*left, Tints({{"a", 0.5f}})), AnUncoloredPattern(*right, Tints({{"b", 0.5f}})),
        {Difference("PaintColorSpace", "(a)", "(b)"), Difference("PaintColor", "(a @ 50%)", "(b @ 50%)")});
}

TEST_F(Patterns, CellClipsAreExact)
{
    const double more = std::nextafter(8000.0, 9000.0);
    const double some = std::nextafter(0.0, 1.0);
    for (const Box& clip : {Box(some, 0.0, 8000.0, 8000.0), Box(0.0, some, 8000.0, 8000.0),
                            Box(0.0, 0.0, more, 8000.0), Box(0.0, 0.0, 8000.0, more)}) {
        RecordingReporter reporter;
        Comparators::Compare(reporter, static_cast<const OrvDoc::ContentObject&>(*Filled(Left().Get())),
                             *Filled(Right().SetCellClip(clip).Get()), AllOptions());
        EXPECT_THAT(reporter.Labels(), ElementsAre("PatternPaintBoundingBox"));
    }
    ExpectPaintReports(
        Left(), Right().SetCellClip(Box(0.0, 0.0, 8000.0, 7000.0)),
        {Difference("PatternPaintBoundingBox", "[ L: 0, T: 8000, R: 8000, B: 0 (W: 8000, H 8000) ]",
                    "[ L: 0, T: 7000, R: 8000, B: 0 (W: 8000, H 7000) ]")});
}

TEST_F(Patterns, ACellClipThatWasNeverSetIsNotAnEmptyOne)
{
    ExpectPaintReports(Left().SetCellClip(Box()), Right().SetCellClip(Box(0.0, 0.0, 0.0, 0.0)),
                       {Difference("PatternPaintBoundingBox", "[ <initial/default state> ]",
                                   "[ L: 0, T: 0, R: 0, B: 0 (W: 0, H 0) ]")});
}

TEST_F(Patterns, StepsAreExact)
{
    ExpectPaintReports(Left(), Right().SetStep({std::nextafter(8000.0, 0.0), 9000.0}),
                       {Difference("PatternPaintStep", "[W: 8000, H: 9000]", "[W: 8000, H: 9000]")});
    ExpectPaintReports(Left(), Right().SetStep({8000.0, -9000.0}),
                       {Difference("PatternPaintStep", "[W: 8000, H: 9000]", "[W: 8000, H: -9000]")});
}

TEST_F(Patterns, DifferencesOfTheCellComeFirstAndThoseOfThePaintInTheirOrder)
{
    RecordingReporter reporter;
    Use(Left("a").Get(), Right("b")
                             .SetTransformation(Matrix(2.0, 0.0, 0.0, 1.0, 0.0, 0.0))
                             .SetCellClip(Box())
                             .SetStep({1.0, 1.0})
                             .Get());
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectName", "PaintTransformation", "PatternPaintBoundingBox",
                                               "PatternPaintStep"));
}

TEST_F(Patterns, AMismatchInTheCellEndsTheCellAlone)
{
    Use(PatternOf(*left, Square("a"), Square("b")).Get(), PatternOf(*right, UserGroup(), Square("x")).Get());
    Fill(ContentOf(*left), Square("c"));
    Fill(ContentOf(*right), Square("d"));
    Expect({Difference("ObjectType", "OrvDoc::Path", "OrvDoc::Group"), Difference("ObjectName", "c", "d")});
}

TEST_F(Patterns, APairOfManyObjectsIsComparedAtTheFirst)
{
    const PaintPointer leftPaint = Left("a").SetStep({1.0, 1.0}).Get();
    const PaintPointer rightPaint = Right("b").Get();
    for (int i = 0; i < 10; ++i)
        Use(leftPaint, rightPaint);
    Expect({Difference("ObjectName", "a", "b"),
            Difference("PatternPaintStep", "[W: 1, H: 1]", "[W: 8000, H: 9000]")});
}

TEST_F(Patterns, APairIsKnownForStrokesAndOnOtherPages)
{
    const auto leftPages = NewDocument(2);
    const auto rightPages = NewDocument(2);
    const PaintPointer leftPaint = APattern(*leftPages, "a").Get();
    const PaintPointer rightPaint = APattern(*rightPages, "b").Get();
    Fill(ContentOf(*leftPages, 0), Filled(leftPaint));
    Fill(ContentOf(*rightPages, 0), Filled(rightPaint));
    Fill(ContentOf(*leftPages, 1), Stroked(leftPaint));
    Fill(ContentOf(*rightPages, 1), Stroked(rightPaint));
    ExpectReports(*leftPages, *rightPages, {Difference("ObjectName", "a", "b")});
}

TEST_F(Patterns, ALeftOneWithAnotherPartnerIsADifferenceAndComparedInFull)
{
    const PaintPointer shared = Left("a").Get();
    Use(shared, Right("a").Get());
    Use(shared, Right("b").Get());
    Expect({Difference("ObjectName", "a", "b"), metWithAnotherRight});
}

TEST_F(Patterns, ARightOneWithAnotherPartnerIsADifferenceAndComparedInFull)
{
    const PaintPointer shared = Right("a").Get();
    Use(Left("a").Get(), shared);
    Use(Left("b").Get(), shared);
    Expect({Difference("ObjectName", "b", "a"), metWithAnotherLeft});
}

TEST_F(Patterns, EqualColorsAreNoShortcutAroundTheReuse)
{
    const PaintPointer shared = Left().Get();
    Use(shared, Right().Get());
    Use(shared, Right().Get());
    Expect({metWithAnotherRight});
}

TEST_F(Patterns, TheOldestMeetingDecidesEachTime)
{
    const PaintPointer shared = Left().Get();
    const PaintPointer first = Right().Get();
    const PaintPointer second = Right().Get();
    Use(shared, first);
    Use(shared, second); // told, and known from now on
    Use(shared, second); // told again, since the meeting with the first one is older
    Use(shared, first);
    Expect({metWithAnotherRight, metWithAnotherRight});
}

TEST_F(Patterns, OfTwoMeetingsTheOlderOneDecidesOnWhicheverSideItIs)
{
    const PaintPointer a = Left().Get();
    const PaintPointer b = Left().Get();
    const PaintPointer x = Right().Get();
    const PaintPointer y = Right().Get();
    Use(a, x);
    Use(b, y);
    Use(a, y); // a was met with x before y was met with b
    Use(b, x); // x was met with a before b was met with y
    Expect({metWithAnotherRight, metWithAnotherLeft});
}

TEST_F(Patterns, AMeetingThatWasToldBindsItsNewPartner)
{
    const PaintPointer a = Left().Get();
    const PaintPointer y = Right().Get();
    Use(a, Right().Get());
    Use(a, y);            // told, and y is known to belong to a
    Use(Left().Get(), y); // so this one is told as well
    Expect({metWithAnotherRight, metWithAnotherLeft});
}

TEST_F(Patterns, EachNewPartnerJoinsTheList)
{
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    const PaintPointer a = Left().Get();
    const PaintPointer x = Right().Get();
    const PaintPointer y = Right().Get();
    for (const PaintPointer& partner : {x, x, y, y})
        Comparators::ComparePattern(context, a, partner, scope);
    ASSERT_THAT(context.visitedPatterns, SizeIs(3));
    EXPECT_EQ(context.visitedPatterns[0],
              std::make_pair(std::static_pointer_cast<const OrvPaint::PatternPaint>(a),
                             std::static_pointer_cast<const OrvPaint::PatternPaint>(x)));
    EXPECT_EQ(context.visitedPatterns[1].second, y);
    EXPECT_EQ(context.visitedPatterns[2].second, y);
    EXPECT_THAT(scope.differences, SizeIs(4)); // two reuses of the paint, and two of its cell
}

TEST_F(Patterns, TheListDecidesAlsoIfItWasFilledOtherwise)
{
    RecordingReporter reporter;
    Comparators::ComparisonContext context(reporter, AllOptions());
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    const auto a = Left("a").Get();
    const auto b = Right("b").Get();
    context.visitedPatterns.emplace_back(a, b);
    Comparators::ComparePattern(context, a, b, scope);
    EXPECT_THAT(scope.differences, IsEmpty());
    EXPECT_THAT(reporter.Labels(), IsEmpty());
}

TEST_F(Patterns, CellsSharedByTwoPaintsAreComparedOnce)
{
    const Factory leftPaint = Left("a");
    const Factory rightPaint = Right("b");
    Use(leftPaint.Get(), rightPaint.Get());
    Use(Factory(leftPaint).SetStep({1.0, 1.0}).Get(), Factory(rightPaint).SetStep({2.0, 2.0}).Get());
    Expect(
        {Difference("ObjectName", "a", "b"), Difference("PatternPaintStep", "[W: 1, H: 1]", "[W: 2, H: 2]")},
        AllOptions());
}

TEST_F(Patterns, CellsSharedByTwoPaintsAreComparedForEachIfNobodyAsks)
{
    const Factory leftPaint = Left("a");
    const Factory rightPaint = Right("b");
    Use(leftPaint.Get(), rightPaint.Get());
    Use(leftPaint.Get(), rightPaint.Get());
    Expect({Difference("ObjectName", "a", "b"), Difference("ObjectName", "a", "b")});
}

TEST_F(Patterns, CellsSharedOnOneSideAreADifferenceIfAskedFor)
{
    const Factory shared = Left("a");
    Use(shared.Get(), Right("a").Get());
    Use(shared.Get(), Right("b").Get());
    Expect({Difference("ObjectName", "a", "b"), Difference("PatternPaintContentReuse", "1", "0")},
           AllOptions());
    Expect({Difference("ObjectName", "a", "b")});
}

TEST_F(Patterns, CellsSharedOnTheRightAreTheMirror)
{
    const Factory shared = Right("a");
    Use(Left("a").Get(), shared.Get());
    Use(Left("a").Get(), shared.Get());
    Expect({Difference("PatternPaintContentReuse", "0", "1")}, AllOptions());
}

TEST_F(Patterns, ReuseIsToldBeforeAllElseOfThePaint)
{
    const Factory shared = Left("a");
    const PaintPointer sharedPaint = shared.Get();
    Use(sharedPaint, Right("a").Get());
    Use(sharedPaint, Right("b").SetStep({1.0, 1.0}).Get());
    Expect({Difference("ObjectName", "a", "b"), metWithAnotherRight,
            Difference("PatternPaintStep", "[W: 8000, H: 9000]", "[W: 1, H: 1]"),
            Difference("PatternPaintContentReuse", "1", "0")},
           AllOptions());
}

TEST_F(Patterns, ContentsAreNotListedIfNobodyAsks)
{
    RecordingReporter reporter;
    const auto object = Square();
    Comparators::DifferenceScope<OrvDoc::ContentObject> scope(*object, *object);
    const PaintPointer a = Left().Get();
    const PaintPointer x = Right().Get();
    Comparators::ComparisonContext asked(reporter, AllOptions());
    Comparators::ComparePattern(asked, a, x, scope);
    EXPECT_THAT(asked.visitedPatternContents, SizeIs(1));
    Comparators::ComparisonContext notAsked(reporter, WithoutContentReuse());
    Comparators::ComparePattern(notAsked, a, x, scope);
    EXPECT_THAT(notAsked.visitedPatternContents, IsEmpty());
}

TEST_F(Patterns, UncoloredCellsAreComparedWithoutTheirPaints)
{
    const auto cell = [](OrvDoc::Document& document, float tint) {
        return Factory(Drawing(document, OrvDoc::Content::Type::UncoloredPatternContent,
                               Filled(Flat(Tints({{"a", tint}})))))
            .SetColor(Tints({{"Spot", 1.0f}}));
    };
    ExpectPaintReports(cell(*left, 0.5f), cell(*right, 1.0f), {});
}

TEST_F(Patterns, NestDeeply)
{
    const auto nested = [](OrvDoc::Document& document, const std::string& name) {
        PaintPointer paint = APattern(document, name).Get();
        for (int depth = 0; depth < 64; ++depth)
            paint = PatternOf(document, Filled(paint)).Get();
        return paint;
    };
    Use(nested(*left, "a"), nested(*right, "b"));
    Expect({Difference("ObjectName", "a", "b")});
}

} // namespace HarrowSupport::Testing
