#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::Testing::Tree;

TEST(InterpreterClips, AClipIsAGroupWhoseFirstObjectClips)
{
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W n 0 0 m 1 0 l S Q 0 0 m 2 0 l S"),
              "group[path clip {M 0 0 L 9000 0}; path {M 0 0 L 1000 0} stroke Gray 0]; "
              "path {M 0 0 L 2000 0} stroke Gray 0");
}

TEST(InterpreterClips, SavingAndRestoringAloneMakesNothing)
{
    EXPECT_EQ(Tree("q q Q 0 0 m 1 0 l S Q"), "path {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterClips, AClipHasItsOwnWindingRule)
{
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W* n Q"), "group[path clip *{M 0 0 L 9000 0}]");
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W* f Q"),
              "path {M 0 0 L 9000 0} fill Gray 0; group[path clip *{M 0 0 L 9000 0}]");
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W f* Q"),
              "path *{M 0 0 L 9000 0} fill Gray 0; group[path clip {M 0 0 L 9000 0}]");
}

TEST(InterpreterClips, WhatThePathIsPaintedWithStandsBelowTheClipAndOutsideOfIt)
{
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W S 0 0 m 1 0 l S Q"),
              "path {M 0 0 L 9000 0} stroke Gray 0; "
              "group[path clip {M 0 0 L 9000 0}; path {M 0 0 L 1000 0} stroke Gray 0]");
}

TEST(InterpreterClips, UnderAMatrixWithoutInverseTheShapeIsMappedInsteadOfTheObject)
{
    EXPECT_EQ(Tree("q 2 0 0 0 1 5 cm 0 0 3 4 re W n Q"),
              "group[path clip {M 1000 5000 L 7000 5000 L 7000 5000 L 1000 5000 Z}]");
    EXPECT_EQ(Tree("q 2 0 0 1 1 5 cm 0 0 3 4 re W n Q"),
              "group[path @2,0,0,1,1000,5000 clip {M 0 0 L 3000 0 L 3000 4000 L 0 4000 Z}]");
}

TEST(InterpreterClips, AClosingPaintingOperatorClosesTheClipToo)
{
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W s Q"),
              "path {M 0 0 L 9000 0 Z} stroke Gray 0; group[path clip {M 0 0 L 9000 0 Z}]");
}

TEST(InterpreterClips, ClipsInsideOfOneAnotherAreGroupsInsideOfOneAnother)
{
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W n 0 0 m 8 0 l W n 0 0 m 1 0 l S Q"),
              "group[path clip {M 0 0 L 9000 0}; "
              "group[path clip {M 0 0 L 8000 0}; path {M 0 0 L 1000 0} stroke Gray 0]]");
}

TEST(InterpreterClips, AClipOutsideOfAnySavedStateLastsToTheEnd)
{
    EXPECT_EQ(Tree("0 0 m 9 0 l W n q 0 0 m 1 0 l S Q 0 0 m 2 0 l S"),
              "group[path clip {M 0 0 L 9000 0}; path {M 0 0 L 1000 0} stroke Gray 0; "
              "path {M 0 0 L 2000 0} stroke Gray 0]");
}

TEST(InterpreterClips, AClipThatNothingFollowsIsKept)
{
    EXPECT_EQ(Tree("0 0 m 9 0 l W n"), "group[path clip {M 0 0 L 9000 0}]");
}

TEST(InterpreterClips, AClipStandsUnderTheMatrixInForce)
{
    EXPECT_EQ(Tree("q 2 0 0 2 0 0 cm 0 0 m 9 0 l W n 0 0 m 1 0 l S Q"),
              "group[path @2,0,0,2,0,0 clip {M 0 0 L 9000 0}; "
              "path @2,0,0,2,0,0 {M 0 0 L 1000 0} stroke Gray 0]");
}

TEST(InterpreterClips, AClipWithoutAPathClipsNothing)
{
    EXPECT_EQ(
        Tree("W n 0 0 m 1 0 l S"),
        "path {M 0 0 L 1000 0} stroke Gray 0 | operator n: a clip without a path clips nothing, byte 2");
}

TEST(InterpreterClips, AClipInFrontOfThePathCountsForIt)
{
    EXPECT_EQ(Tree("W 0 0 m 9 0 l n"), "group[path clip {M 0 0 L 9000 0}]");
}

TEST(InterpreterClips, TheLastOfTwoClipOperatorsCounts)
{
    EXPECT_EQ(Tree("0 0 m 9 0 l W W* n"), "group[path clip *{M 0 0 L 9000 0}]");
}

TEST(InterpreterClips, AClipInsideOfANamedObjectBearsTheName)
{
    EXPECT_EQ(Tree("q /OrvObject <</Name (edge)>> BDC 0 0 m 9 0 l W n EMC 0 0 m 1 0 l S Q"),
              "group[path 'edge' clip {M 0 0 L 9000 0}; path {M 0 0 L 1000 0} stroke Gray 0]");
}

TEST(InterpreterClips, ANameOfAPathThatIsPaintedAndClipsIsThatOfThePaintedObject)
{
    EXPECT_EQ(Tree("/OrvObject <</Name (edge)>> BDC 0 0 m 9 0 l W S EMC"),
              "path 'edge' {M 0 0 L 9000 0} stroke Gray 0; group[path clip {M 0 0 L 9000 0}]");
}

// The form in which clips under a matrix of their own are written.

TEST(InterpreterClips, AResetLeavesTheMatrixOfTheClipExactly)
{
    EXPECT_EQ(Tree("q 3 0 0 3 1 1 cm 0 0 m 9 0 l W n /OrvReset <</Matrix [3 0 0 3 1 1]>> DP "
                   "0.333333 0 0 0.333333 -0.333333 -0.333333 cm 0 0 m 1 0 l S Q"),
              "group[path @3,0,0,3,1000,1000 clip {M 0 0 L 9000 0}; path {M 0 0 L 1000 0} stroke Gray 0]");
}

TEST(InterpreterClips, AResetWithAnotherMatrixThanThatInForceResetsNothing)
{
    EXPECT_EQ(Tree("/OrvReset <</Matrix [3 0 0 3 1 1]>> DP 2 0 0 2 0 0 cm 0 0 m 1 0 l S"),
              "path @2,0,0,2,0,0 {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterClips, AResetCountsForTheOperatorRightBehindItAlone)
{
    EXPECT_EQ(
        Tree("2 0 0 2 0 0 cm /OrvReset <</Matrix [2 0 0 2 0 0]>> DP 1 w .5 0 0 .5 1 0 cm 0 0 m 1 0 l S"),
        "path @1,0,0,1,2000,0 {M 0 0 L 1000 0} stroke Gray 0");
}

TEST(InterpreterClips, AMatrixAtTheBeginningIsNoReset)
{
    EXPECT_EQ(Tree("1 0 0 1 5 5 cm 0 0 m 1 0 l S"), "path @1,0,0,1,5000,5000 {M 0 0 L 1000 0} stroke Gray 0");
}

} // namespace
