#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;

// A path for each letter of a story: `a` is a line of one point, and so on.
const std::string a = " 0 0 m 1 0 l n ";
const std::string b = " 0 0 m 2 0 l n ";
const std::string clip = " 0 0 m 9 0 l W n ";
const std::string pathA = "path {M 0 0 L 1000 0}";
const std::string pathB = "path {M 0 0 L 2000 0}";
const std::string clipPath = "path clip {M 0 0 L 9000 0}";

TEST(InterpreterScopes, MarkedContentInsideOfAClipNests)
{
    EXPECT_EQ(Tree("q" + clip + "/T BMC" + a + "EMC" + b + "Q"),
              "group[" + clipPath + "; group /T[" + pathA + "]; " + pathB + "]");
}

TEST(InterpreterScopes, AClipInsideOfMarkedContentNests)
{
    EXPECT_EQ(Tree("/T BMC q" + clip + a + "Q" + b + "EMC"),
              "group /T[group[" + clipPath + "; " + pathA + "]; " + pathB + "]");
}

TEST(InterpreterScopes, MarkedContentThatOutlivesItsClipGoesOnBehindIt)
{
    EXPECT_EQ(Tree("q" + clip + "/T BMC" + a + "Q" + b + "EMC" + b),
              "group[" + clipPath + "; group /T[" + pathA + "]]; group /T[" + pathB + "]; " + pathB);
}

TEST(InterpreterScopes, MarkedContentThatOutlivesItsClipIsNotRepeatedWithoutObjects)
{
    EXPECT_EQ(Tree("q" + clip + "/T BMC" + a + "Q EMC" + b),
              "group[" + clipPath + "; group /T[" + pathA + "]]; " + pathB);
}

TEST(InterpreterScopes, AClipThatOutlivesItsMarkedContentGoesOnBehindIt)
{
    EXPECT_EQ(Tree("q /T BMC" + clip + a + "EMC" + b + "Q" + a), "group /T[group[" + clipPath + "; " + pathA +
                                                                     "]]; group[" + clipPath + "; " + pathB +
                                                                     "]; " + pathA);
}

TEST(InterpreterScopes, MarkedContentWithoutObjectsStaysWhereItBegan)
{
    EXPECT_EQ(Tree("/T BMC EMC" + a), "group /T[]; " + pathA);
    EXPECT_EQ(Tree("q" + clip + "/T BMC EMC Q"), "group[" + clipPath + "; group /T[]]");
}

TEST(InterpreterScopes, EachScopeLeavesAGroupHoweverItOverlaps)
{
    EXPECT_EQ(Tree("q" + clip + "/T BMC Q EMC"), "group[" + clipPath + "]; group /T[]");
    EXPECT_EQ(Tree("q /T BMC" + clip + "EMC Q"), "group /T[]; group[" + clipPath + "]");
}

TEST(InterpreterScopes, ScopesThatNothingEndsLastToTheEnd)
{
    EXPECT_EQ(Tree("/T BMC q" + clip + a),
              "group /T[group[" + clipPath + "; " + pathA + "]] | marked content that is not ended, byte 40");
}

TEST(InterpreterScopes, EndsWithoutABeginningAreLeftOut)
{
    EXPECT_EQ(Tree("Q EMC Q EMC" + a),
              pathA + " | operator Q: there is no saved state, byte 0 and 1 more"
                      " | operator EMC: there is no marked content to end, byte 2 and 1 more");
}

TEST(InterpreterScopes, RestoringEndsTheClipsOfThatStateAlone)
{
    EXPECT_EQ(Tree("q" + clip + "q" + clip + "Q" + a + "Q" + b),
              "group[" + clipPath + "; group[" + clipPath + "]; " + pathA + "]; " + pathB);
}

TEST(InterpreterScopes, ClipsAndMarkedContentThatCrossTwiceKeepTheOrderOfPainting)
{
    EXPECT_EQ(Tree("q" + clip + "/T BMC q" + clip + "/U BMC" + a + "Q" + b + "Q" + a + "EMC EMC"),
              "group[" + clipPath + "; group /T[group[" + clipPath + "; group /U[" + pathA + "]]; group /U[" +
                  pathB + "]]]; group /T[group /U[" + pathA + "]]");
}

// Groups in the form in which they are written.

TEST(InterpreterScopes, AGroupHasItsNameAndFlags)
{
    EXPECT_EQ(Tree("/OrvGroup <</Name (Gr\\303\\274n) /Flags 1073742335>> BDC" + a + "EMC"),
              "group 'Gr\xC3\xBCn' #1073742335[" + pathA + "]");
}

TEST(InterpreterScopes, AGroupWithoutPropertiesIsAnOrdinaryGroup)
{
    EXPECT_EQ(Tree("/OrvGroup BMC" + a + "EMC"), "group[" + pathA + "]");
}

TEST(InterpreterScopes, ATextGroupMayClip)
{
    EXPECT_EQ(Tree("/OrvTextGroup <</Name (t)>> BDC" + a + "EMC"), "text 't'[" + pathA + "]");
    EXPECT_EQ(Tree("/OrvTextGroup <</Clip true>> BDC" + a + "EMC"), "text clip[" + pathA + "]");
    EXPECT_EQ(Tree("/OrvGroup <</Clip true>> BDC" + a + "EMC"), "group[" + pathA + "]");
}

TEST(InterpreterScopes, TheMatrixOfAGroupIsItsOwn)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 .5 0]>> BDC q 2 0 0 2 .5 0 cm" + a + "3 0 0 3 0 0 cm" + b +
                   "Q EMC" + a),
              "group @2,0,0,2,500,0[" + pathA + "; path @3,0,0,3,0,0 {M 0 0 L 2000 0}]; " + pathA);
}

TEST(InterpreterScopes, GroupsWithMatricesNest)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC q 2 0 0 2 0 0 cm "
                   "/OrvGroup <</Matrix [3 0 0 3 0 0]>> BDC q 3 0 0 3 0 0 cm" +
                   a + "Q EMC" + b + "Q EMC"),
              "group @2,0,0,2,0,0[group @3,0,0,3,0,0[" + pathA + "]; " + pathB + "]");
}

TEST(InterpreterScopes, AGroupMatrixUnderAnotherMatrixIsRelativeToTheContainer)
{
    EXPECT_EQ(Tree("5 0 0 5 0 0 cm /OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC 2 0 0 2 0 0 cm" + a + "EMC" + b),
              "group @10,0,0,10,0,0[" + pathA + "]; path @10,0,0,10,0,0 {M 0 0 L 2000 0}");
}

TEST(InterpreterScopes, AGroupMatrixThatNoOperatorRepeatsIsNone)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC q 3 0 0 3 0 0 cm" + a + "Q EMC"),
              "group[path @3,0,0,3,0,0 {M 0 0 L 1000 0}]");
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC 1 w 2 0 0 2 0 0 cm" + a + "EMC"),
              "group[path @2,0,0,2,0,0 {M 0 0 L 1000 0}]");
}

TEST(InterpreterScopes, AGroupMatrixThatIsNoMatrixIsTold)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0]>> BDC" + a + "EMC"),
              "group[" + pathA + "] | operator BDC: a group matrix that is none, byte 0");
}

TEST(InterpreterScopes, ObjectsBehindARestoredMatrixLeaveTheTransformationOfTheirGroup)
{
    EXPECT_EQ(
        Tree("/OrvGroup <</Name (g) /Matrix [2 0 0 2 0 0]>> BDC q 2 0 0 2 0 0 cm" + a + "Q" + b + "EMC"),
        "group 'g' @2,0,0,2,0,0[" + pathA + "]; group 'g'[" + pathB + "]");
}

TEST(InterpreterScopes, AMatrixThatComesBehindObjectsIsNotThatOfTheirGroup)
{
    EXPECT_EQ(Tree("/T BMC" + a + "/OrvAttributes <</Matrix [2 0 0 2 0 0]>> DP 2 0 0 2 0 0 cm" + b + "EMC"),
              "group /T[" + pathA + "; path @2,0,0,2,0,0 {M 0 0 L 2000 0}]");
}

TEST(InterpreterScopes, AGroupGetsItsMatrixOnce)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC 2 0 0 2 0 0 cm "
                   "/OrvAttributes <</Name (n) /Matrix [3 0 0 3 0 0]>> DP 3 0 0 3 0 0 cm" +
                   a + "EMC"),
              "group 'n' @2,0,0,2,0,0[path @3,0,0,3,0,0 {M 0 0 L 1000 0}]");
}

TEST(InterpreterScopes, AnEmptyGroupKeepsItsMatrix)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC q 2 0 0 2 0 0 cm Q EMC"), "group @2,0,0,2,0,0[]");
}

TEST(InterpreterScopes, AStateThatOutlivesTheGroupKeepsItsPlaceOnThePage)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC 2 0 0 2 0 0 cm q 3 0 0 3 0 0 cm" + a + "EMC" + b +
                   "Q" + b),
              "group @2,0,0,2,0,0[path @3,0,0,3,0,0 {M 0 0 L 1000 0}]; path @6,0,0,6,0,0 {M 0 0 L 2000 0}; "
              "path @2,0,0,2,0,0 {M 0 0 L 2000 0}");
}

TEST(InterpreterScopes, AClipThatOutlivesTheGroupKeepsItsPlaceOnThePage)
{
    EXPECT_EQ(Tree("/OrvGroup <</Matrix [2 0 0 2 0 0]>> BDC 2 0 0 2 0 0 cm q" + clip + "EMC" + a + "Q"),
              "group @2,0,0,2,0,0[]; group[path @2,0,0,2,0,0 clip {M 0 0 L 9000 0}; "
              "path @2,0,0,2,0,0 {M 0 0 L 1000 0}]");
}

TEST(InterpreterScopes, AGroupClaimsSoManyClipsAsItSays)
{
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 2>> BDC q" + clip + "q" + clip + "q" + clip + a + "Q Q Q EMC"),
              "group[" + clipPath + "; " + clipPath + "; group[" + clipPath + "; " + pathA + "]]");
}

TEST(InterpreterScopes, AGroupThatClaimsNoClipsHasNone)
{
    EXPECT_EQ(Tree("/OrvGroup BMC q" + clip + a + "Q EMC"), "group[group[" + clipPath + "; " + pathA + "]]");
}

TEST(InterpreterScopes, ClipsInsideOfAnotherGroupAreNotClaimed)
{
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 1>> BDC /T BMC q" + clip + "Q EMC EMC"),
              "group[group /T[group[" + clipPath + "]]]");
}

TEST(InterpreterScopes, ClipsBehindAnObjectAreNotClaimed)
{
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 1>> BDC" + a + "q" + clip + a + "Q EMC"),
              "group[" + pathA + "; group[" + clipPath + "; " + pathA + "]]");
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 1>> BDC /T BMC EMC q" + clip + a + "Q EMC"),
              "group[group /T[]; group[" + clipPath + "; " + pathA + "]]");
}

TEST(InterpreterScopes, AClaimedClipMayBeNamedAndStandUnderAMatrix)
{
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 1>> BDC q 2 0 0 2 0 0 cm /OrvObject <</Name (c)>> BDC" + clip +
                   "EMC /OrvReset <</Matrix [2 0 0 2 0 0]>> DP .5 0 0 .5 0 0 cm" + a + "Q EMC"),
              "group[path 'c' @2,0,0,2,0,0 clip {M 0 0 L 9000 0}; " + pathA + "]");
}

TEST(InterpreterScopes, MatrixAndClaimedClipsGoTogether)
{
    EXPECT_EQ(
        Tree("/OrvGroup <</Matrix [2 0 0 2 0 0] /OwnClips 1>> BDC q 2 0 0 2 0 0 cm q" + clip + a + "Q Q EMC"),
        "group @2,0,0,2,0,0[" + clipPath + "; " + pathA + "]");
}

TEST(InterpreterScopes, ANameIsThatOfTheOneObjectInside)
{
    EXPECT_EQ(Tree("/OrvObject <</Name (x)>> BDC" + a + b + "EMC" + a),
              "path 'x' {M 0 0 L 1000 0}; " + pathB + "; " + pathA);
}

TEST(InterpreterScopes, ANameEndsWithItsMarkedContent)
{
    EXPECT_EQ(Tree("/OrvObject <</Name (x)>> BDC EMC" + a), pathA);
}

TEST(InterpreterScopes, ANameIsNotThatOfAPoint)
{
    EXPECT_EQ(Tree("/OrvObject <</Name (x)>> BDC /P MP" + a + "EMC"),
              "group point /P[]; path 'x' {M 0 0 L 1000 0}");
}

TEST(InterpreterScopes, TheEvenOddRuleOfAPathThatNothingFillsIsAnAttribute)
{
    EXPECT_EQ(Tree("/OrvObject <</EvenOdd true>> BDC 0 0 m 1 0 l S EMC"),
              "path *{M 0 0 L 1000 0} stroke Gray 0");
    EXPECT_EQ(Tree("/OrvObject <</EvenOdd true>> BDC 0 0 m 1 0 l n EMC"), "path *{M 0 0 L 1000 0}");
    EXPECT_EQ(Tree("/OrvObject <</EvenOdd true>> BDC 0 0 m 1 0 l f EMC"),
              "path {M 0 0 L 1000 0} fill Gray 0");
    EXPECT_EQ(Tree("/OrvObject <</EvenOdd true>> BDC 0 0 m 1 0 l W n EMC"),
              "group[path clip {M 0 0 L 1000 0}]");
}

TEST(InterpreterScopes, AttributesBelongToTheMarkedContentAroundThem)
{
    EXPECT_EQ(Tree("/T BMC /OrvAttributes <</Name (n) /Flags 7 /Matrix [2 0 0 2 0 0] /OwnClips 1>> DP "
                   "q 2 0 0 2 0 0 cm q" +
                   clip + a + "Q Q EMC"),
              "group 'n' @2,0,0,2,0,0 #7 /T[" + clipPath + "; " + pathA + "]");
}

TEST(InterpreterScopes, AttributesOutsideOfMarkedContentAreTold)
{
    EXPECT_EQ(Tree("/OrvAttributes <</Name (n)>> DP" + a),
              pathA + " | operator DP: attributes of a group that is none, byte 0");
    EXPECT_EQ(Tree("/T BMC q" + clip + "/OrvAttributes <</Name (n)>> DP Q EMC"),
              "group /T[group[" + clipPath + "]] | operator DP: attributes of a group that is none, byte 25");
}

} // namespace
