#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::Testing::Tree;

TEST(InterpreterPaths, LinesAreStrokedInBlack)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l S"), "path {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterPaths, NumbersAreShiftedToMilliPointsBeforeTheyAreRounded)
{
    EXPECT_EQ(Tree("12.345 -.0001 m 0.1 4.35 l S"), "path {M 12345 -0.1 L 100 4350} stroke Gray 0");
}

TEST(InterpreterPaths, CurveShorthandsReplicateAPoint)
{
    EXPECT_EQ(Tree("0 0 m 1 1 2 1 3 0 c f"), "path {M 0 0 C 1000 1000 2000 1000 3000 0} fill Gray 0");
    EXPECT_EQ(Tree("5 6 m 2 1 3 0 v f"), "path {M 5000 6000 C 5000 6000 2000 1000 3000 0} fill Gray 0");
    EXPECT_EQ(Tree("5 6 m 2 1 3 0 y f"), "path {M 5000 6000 C 2000 1000 3000 0 3000 0} fill Gray 0");
}

TEST(InterpreterPaths, ACurveFromTheCurrentPointBeginsAtTheStartOfAClosedSubpath)
{
    EXPECT_EQ(Tree("5 6 m 7 6 l h 2 1 3 0 v n"),
              "path {M 5000 6000 L 7000 6000 Z M 5000 6000 C 5000 6000 2000 1000 3000 0}");
}

TEST(InterpreterPaths, ARectangleIsAClosedSubpathThatBeginsAlongTheWidth)
{
    EXPECT_EQ(Tree("1 2 3 4 re f"), "path {M 1000 2000 L 4000 2000 L 4000 6000 L 1000 6000 Z} fill Gray 0");
}

TEST(InterpreterPaths, ARectangleMayHaveNegativeExtents)
{
    EXPECT_EQ(Tree("1 2 -3 -4 re f"),
              "path {M 1000 2000 L -2000 2000 L -2000 -2000 L 1000 -2000 Z} fill Gray 0");
}

TEST(InterpreterPaths, LinesBehindARectangleBeginAtItsCorner)
{
    EXPECT_EQ(Tree("1 2 3 4 re 9 9 l n"),
              "path {M 1000 2000 L 4000 2000 L 4000 6000 L 1000 6000 Z M 1000 2000 L 9000 9000}");
}

TEST(InterpreterPaths, AMoveReplacesTheMoveInFrontOfIt)
{
    EXPECT_EQ(Tree("1 1 m 2 2 m 3 3 l S"), "path {M 2000 2000 L 3000 3000} stroke Gray 0");
}

TEST(InterpreterPaths, AMoveAtTheEndStaysAsASubpath)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l 5 5 m S"), "path {M 0 0 L 1000 0 M 5000 5000} stroke Gray 0");
}

TEST(InterpreterPaths, ALoneMoveIsAPath)
{
    EXPECT_EQ(Tree("5 5 m S"), "path {M 5000 5000} stroke Gray 0");
}

TEST(InterpreterPaths, EachPaintingOperatorPaintsWhatItSays)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l S"), "path {M 0 0 L 1000 0} stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l s"), "path {M 0 0 L 1000 0 Z} stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l f"), "path {M 0 0 L 1000 0} fill Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l F"), "path {M 0 0 L 1000 0} fill Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l f*"), "path *{M 0 0 L 1000 0} fill Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l B"), "path {M 0 0 L 1000 0} fill Gray 0 stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l B*"), "path *{M 0 0 L 1000 0} fill Gray 0 stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l b"), "path {M 0 0 L 1000 0 Z} fill Gray 0 stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l b*"), "path *{M 0 0 L 1000 0 Z} fill Gray 0 stroke Gray 0");
    EXPECT_EQ(Tree("0 0 m 1 0 l n"), "path {M 0 0 L 1000 0}");
}

TEST(InterpreterPaths, ClosingTwiceIsClosingOnce)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l h h s"), "path {M 0 0 L 1000 0 Z} stroke Gray 0");
}

TEST(InterpreterPaths, PaintingNothingMakesNoObject)
{
    EXPECT_EQ(Tree("S s f F f* B B* b b* n"), "");
}

TEST(InterpreterPaths, AnOperatorBetweenConstructionAndPaintingCountsForThePath)
{
    EXPECT_EQ(Tree("0 0 m 1 0 0 rg 1 0 l f"), "path {M 0 0 L 1000 0} fill RGB 1 0 0");
}

TEST(InterpreterPaths, ADrawingOperatorWithoutACurrentPointIsLeftOut)
{
    EXPECT_EQ(Tree("1 0 l 0 0 m 2 0 l S"),
              "path {M 0 0 L 2000 0} stroke Gray 0 | operator l: there is no current point, byte 0");
    EXPECT_EQ(Tree("1 1 2 2 3 3 c"), " | operator c: there is no current point, byte 0");
    EXPECT_EQ(Tree("1 1 2 2 v"), " | operator v: there is no current point, byte 0");
    EXPECT_EQ(Tree("1 1 2 2 y"), " | operator y: there is no current point, byte 0");
    EXPECT_EQ(Tree("h"), " | operator h: there is no path to close, byte 0");
}

TEST(InterpreterPaths, ARectangleBeyondAllNumbersIsLeftOut)
{
    const std::string huge(310, '9');
    EXPECT_EQ(Tree("0 " + huge + " 1 " + huge + " re f"),
              " | operator re: the corners are beyond all numbers, byte 0");
}

TEST(InterpreterPaths, NumbersBeyondAllNumbersAreTheLargestOne)
{
    const std::string huge(400, '9');
    OrvPdf::Testing::Reading reading;
    reading.Read(huge + " 0 m 1 0 l S");
    EXPECT_TRUE(reading.result.errors.empty());
    const auto* const path = dynamic_cast<const OrvDoc::Path*>(reading.content->GetChildren().first);
    ASSERT_TRUE(path);
    EXPECT_EQ(path->DefiningCompound()->GetSubpaths()[0]->GetStart().x.value,
              std::numeric_limits<double>::max());
}

TEST(InterpreterPaths, APathThatNothingEndsIsLeftOut)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l S 0 0 m 1 1 l "),
              "path {M 0 0 L 1000 0} stroke Gray 0 | a path that no operator paints or ends, byte 14");
}

TEST(InterpreterPaths, TheMatrixBecomesTheObjectsOwn)
{
    EXPECT_EQ(Tree("2 0 0 3 0.001 -.5 cm 0 0 m 1 0 l S"),
              "path @2,0,0,3,1,-500 {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterPaths, ObjectsOnTopOfOneAnotherStandInPaintOrder)
{
    EXPECT_EQ(Tree("0 0 m 1 0 l S 0 0 m 2 0 l f"), "path {M 0 0 L 1000 0} stroke Gray 0; "
                                                   "path {M 0 0 L 2000 0} fill Gray 0");
}

} // namespace
