#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;

TEST(InterpreterText, ATextObjectIsATextGroup)
{
    EXPECT_EQ(Tree("BT /F 12 Tf (AB) Tj ET"), "text[F 12 (AB) fill Gray 0]");
}

TEST(InterpreterText, ATextObjectThatShowsNothingIsAnEmptyTextGroup)
{
    EXPECT_EQ(Tree("BT ET"), "text[]");
    EXPECT_EQ(Tree("BT /F 12 Tf () Tj [] TJ ET"), "text[]");
}

TEST(InterpreterText, WhatIsShownInOneFontIsOneTextWhateverItsLines)
{
    EXPECT_EQ(
        Tree("BT /F 12 Tf 5 7 Td (A) Tj (B) Tj 1 -2 Td (C) Tj 0 -3 TD (D) Tj T* (E) Tj (F) ' ET"),
        "text[F 12 (AB move 1 -2 C move 0 -3 D move 0 -3 E move 0 -3 F) at 1,0,0,1,5000,7000 fill Gray 0]");
}

TEST(InterpreterText, MovesWithoutAnythingShownBetweenThemAreOne)
{
    EXPECT_EQ(Tree("BT /F 12 Tf (A) Tj 1 2 Td 3 4 Td (B) Tj ET"), "text[F 12 (A move 4 6 B) fill Gray 0]");
}

TEST(InterpreterText, AdjustmentsStandBetweenTheCodes)
{
    EXPECT_EQ(Tree("BT /F 10 Tf [(A) -120 (B) 3 4 (C)] TJ ET"),
              "text[F 10 (A back -120 B back 3 back 4 C) fill Gray 0]");
    EXPECT_EQ(Tree("BT /F 10 Tf [200 (A)] TJ ET"), "text[F 10 (back 200 A) fill Gray 0]");
}

TEST(InterpreterText, AnotherFontBeginsWhereTheTextBeforeEnds)
{
    // Two characters of 500 thousandths of 10 points, each 1 point apart.
    EXPECT_EQ(Tree("BT /F 10 Tf 1 Tc (AB) Tj /G 10 Tf (C) Tj ET"),
              "text[F 10 spaced 1 (AB) fill Gray 0; G 10 spaced 1 (C) at 1,0,0,1,12000,0 fill Gray 0]");
}

TEST(InterpreterText, TheEndOfATextCountsAdjustmentsScaleAndWordSpacing)
{
    // 5 + 5 + 20 for the blank, less 2, at half the width.
    EXPECT_EQ(Tree("BT /F 10 Tf 50 Tz 20 Tw [(A ) 200] TJ /G 10 Tf (C) Tj ET"),
              "text[F 10 words 20 (scale 0.5 A  back 200) fill Gray 0; "
              "G 10 words 20 (scale 0.5 C) at 1,0,0,1,14000,0 fill Gray 0]");
}

TEST(InterpreterText, AVerticalFontGoesOnUpwards)
{
    EXPECT_EQ(Tree("BT /V 10 Tf [(A) 300 (B)] TJ /F 10 Tf (C) Tj ET"),
              "text[V 10 (A back 300 B) fill Gray 0; F 10 (C) at 1,0,0,1,0,-23000 fill Gray 0]");
}

TEST(InterpreterText, ALineBehindAnotherFontIsToldFromTheStartOfTheLine)
{
    // The second text begins 5 points behind the start of its line.
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj /G 10 Tf (B) Tj 0 -12 Td (C) Tj ET"),
              "text[F 10 (A) fill Gray 0; G 10 (B move -5 -12 C) at 1,0,0,1,5000,0 fill Gray 0]");
}

TEST(InterpreterText, ATextMatrixOfTheSameAxesIsALine)
{
    EXPECT_EQ(Tree("BT /F 10 Tf 2 0 0 2 10 20 Tm (A) Tj 2 0 0 2 10 4 Tm (B) Tj ET"),
              "text[F 10 (A line 0 -8 B) at 2,0,0,2,10000,20000 fill Gray 0]");
}

TEST(InterpreterText, ATextMatrixOfOtherAxesIsATurn)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj 0 1 -1 0 5 6 Tm (B) Tj 1 0 0 1 7 8 Tm (C) Tj ET"),
              "text[F 10 (A turn 0 1 -1 0 5 6 B turn 1 0 0 1 7 8 C) fill Gray 0]");
}

TEST(InterpreterText, ANamedLineIsTakenAsItIsNamed)
{
    EXPECT_EQ(Tree("BT /F 10 Tf 3 0 0 3 0 0 Tm (A) Tj /OrvLine <</Matrix [.1 0 0 1 2 3]>> DP "
                   "0.30000000000000004 0 0 3 6 9 Tm (B) Tj ET"),
              "text[F 10 (A turn 0.1 0 0 1 2 3 B) at 3,0,0,3,0,0 fill Gray 0]");
}

TEST(InterpreterText, ANameThatDoesNotFitTheMatrixSaysNothing)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj /OrvLine <</Matrix [1 0 0 1 2 3]>> DP 1 0 0 1 4 5 Tm (B) Tj ET"),
              "text[F 10 (A line 4 5 B) fill Gray 0]");
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj /OrvLine <</Matrix [2 0 0 1 2 3]>> DP 0 Tc 2 0 0 1 2 3 Tm (B) Tj ET"),
              "text[F 10 (A turn 2 0 0 1 2 3 B) fill Gray 0]");
}

TEST(InterpreterText, BehindAMatrixWithoutInverseALineIsAnotherText)
{
    EXPECT_EQ(Tree("BT /F 10 Tf 0 0 0 1 1 2 Tm (A) Tj 0 0 0 1 3 4 Tm (B) Tj ET"),
              "text[F 10 (A) at 0,0,0,1,1000,2000 fill Gray 0; F 10 (B) at 0,0,0,1,3000,4000 fill Gray 0]");
}

TEST(InterpreterText, ScaleAndRiseAreStepsOfTheText)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj 95 Tz 3 Ts (B) Tj 100 Tz 0 Ts (C) Tj ET"),
              "text[F 10 (A scale 0.95 rise 3 B scale 1 rise 0 C) fill Gray 0]");
}

TEST(InterpreterText, SpacingsMakeTextsOfTheirOwn)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj 1 -2 Td 2 Tc (B) Tj 1 -2 Td 3 Tw (C) Tj ET"),
              "text[F 10 (A) fill Gray 0; F 10 spaced 2 (B) at 1,0,0,1,1000,-2000 fill Gray 0; "
              "F 10 spaced 2 words 3 (C) at 1,0,0,1,2000,-4000 fill Gray 0]");
    EXPECT_EQ(Tree("BT /F 10 Tf 2 TL 3 1 (A) \" ET"),
              "text[F 10 spaced 1 words 3 (A) at 1,0,0,1,0,-2000 fill Gray 0]");
}

TEST(InterpreterText, SettingWhatIsInForceAlreadyBreaksNothing)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj /F 10 Tf 0 Tc 0 g 0 Tr 1 w (B) Tj ET"), "text[F 10 (AB) fill Gray 0]");
}

TEST(InterpreterText, AnotherPaintIsAnotherText)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj 1 0 Td 1 g (B) Tj ET"),
              "text[F 10 (A) fill Gray 0; F 10 (B) at 1,0,0,1,1000,0 fill Gray 1]");
}

TEST(InterpreterText, RenderingModesFillStrokeBothOrNeither)
{
    EXPECT_EQ(Tree("BT /F 10 Tf 0 Tr (A) Tj ET"), "text[F 10 (A) fill Gray 0]");
    EXPECT_EQ(Tree("BT /F 10 Tf 2 w 1 Tr (A) Tj ET"), "text[F 10 (A) stroke Gray 0 width 2000]");
    EXPECT_EQ(Tree("BT /F 10 Tf 2 Tr (A) Tj ET"), "text[F 10 (A) fill Gray 0 stroke Gray 0]");
    EXPECT_EQ(Tree("BT /F 10 Tf 3 Tr (A) Tj ET"), "text[F 10 (A)]");
}

TEST(InterpreterText, ClippingModesPaintAndClipWhatFollowsTheTextObject)
{
    EXPECT_EQ(Tree("q BT /F 10 Tf 4 Tr (A) Tj ET 0 0 m 1 0 l S Q 0 0 m 2 0 l S"),
              "text[F 10 (A) fill Gray 0]; "
              "group[text clip[F 10 (A)]; path {M 0 0 L 1000 0} stroke Gray 0]; "
              "path {M 0 0 L 2000 0} stroke Gray 0");
    EXPECT_EQ(Tree("q BT /F 10 Tf 5 Tr (A) Tj ET Q"),
              "text[F 10 (A) stroke Gray 0]; group[text clip[F 10 (A)]]");
    EXPECT_EQ(Tree("q BT /F 10 Tf 6 Tr (A) Tj ET Q"),
              "text[F 10 (A) fill Gray 0 stroke Gray 0]; group[text clip[F 10 (A)]]");
}

TEST(InterpreterText, WhatOnlyClipsIsInTheGroupThatItClipsAlone)
{
    EXPECT_EQ(Tree("q BT /F 10 Tf 7 Tr (A) Tj ET Q"), "group[text clip[F 10 (A)]]");
}

TEST(InterpreterText, AllTextsOfATextObjectAreOneClip)
{
    EXPECT_EQ(Tree("q BT /F 10 Tf 7 Tr (A) Tj /G 10 Tf (B) Tj ET Q"),
              "group[text clip[F 10 (A); G 10 (B) at 1,0,0,1,5000,0]]");
}

TEST(InterpreterText, ATextMarkedAsAnObjectIsInNoTextGroup)
{
    EXPECT_EQ(Tree("/OrvObject BMC BT /F 10 Tf (A) Tj ET EMC"), "F 10 (A) fill Gray 0");
    EXPECT_EQ(Tree("/OrvObject <</Name (n)>> BDC BT /F 10 Tf (A) Tj ET EMC"), "F 10 'n' (A) fill Gray 0");
}

TEST(InterpreterText, ATextMarkedAsEmptyIsThere)
{
    EXPECT_EQ(Tree("/OrvObject <</Empty true>> BDC BT /F 10 Tf () Tj ET EMC"), "F 10 () fill Gray 0");
}

TEST(InterpreterText, TextObjectsInATextGroupOfOursAreThatGroup)
{
    EXPECT_EQ(
        Tree("/OrvTextGroup <</Name (g)>> BDC BT /F 10 Tf (A) Tj ET q 1 0 0 1 2 3 cm BT (B) Tj ET Q EMC"),
        "text 'g'[F 10 (A) fill Gray 0; F 10 @1,0,0,1,2000,3000 (B) fill Gray 0]");
}

TEST(InterpreterText, AClippingTextGroupOfOursTakesTheTextsThatClip)
{
    EXPECT_EQ(Tree("/OrvGroup <</OwnClips 1>> BDC q /OrvTextGroup <</Clip true /Name (c)>> BDC "
                   "BT /F 10 Tf 7 Tr (A) Tj ET EMC 0 0 m 1 0 l S Q EMC"),
              "group[text 'c' clip[F 10 (A)]; path {M 0 0 L 1000 0} stroke Gray 0]");
}

TEST(InterpreterText, MarkedContentInsideOfATextObjectIsAGroupInTheTextGroup)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj /Span BMC (B) Tj EMC (C) Tj ET"),
              "text[F 10 (A) fill Gray 0; group /Span[F 10 (B) at 1,0,0,1,5000,0 fill Gray 0]; "
              "F 10 (C) at 1,0,0,1,10000,0 fill Gray 0]");
}

TEST(InterpreterText, ParametersOfTextAreSavedAndRestored)
{
    EXPECT_EQ(Tree("/F 10 Tf q /G 20 Tf 1 Tr Q BT (A) Tj ET"), "text[F 10 (A) fill Gray 0]");
}

TEST(InterpreterText, TheMatrixOfTheStateIsTheTextsOwnTransformation)
{
    EXPECT_EQ(Tree("2 0 0 2 1 1 cm BT /F 10 Tf 3 4 Td (A) Tj ET"),
              "text[F 10 @2,0,0,2,1000,1000 (A) at 1,0,0,1,3000,4000 fill Gray 0]");
}

TEST(InterpreterText, ATextObjectBeginsWithAFreshMatrix)
{
    EXPECT_EQ(Tree("BT /F 10 Tf 9 9 Td (A) Tj ET BT (B) Tj ET"),
              "text[F 10 (A) at 1,0,0,1,9000,9000 fill Gray 0]; text[F 10 (B) fill Gray 0]");
}

TEST(InterpreterText, OperatorsThatDoNothingDoNotEndAText)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj q 1 w Q f S n (B) Tj ET"), "text[F 10 (AB) fill Gray 0]");
    EXPECT_EQ(
        Tree("BT /F 10 Tf (A) Tj Q EMC xyz (B) Tj ET"),
        "text[F 10 (AB) fill Gray 0] | operator Q: there is no saved state, byte 19 | "
        "operator EMC: there is no marked content to end, byte 21 | operator xyz: unknown operator, byte 25");
}

TEST(InterpreterText, WhatIsPlacedBetweenEndsAText)
{
    EXPECT_EQ(Tree("BT /F 10 Tf (A) Tj 0 0 m 1 0 l S (B) Tj ET"),
              "text[F 10 (A) fill Gray 0; path {M 0 0 L 1000 0} stroke Gray 0; F 10 (B) at 1,0,0,1,5000,0 "
              "fill Gray 0]");
    EXPECT_EQ(Tree("q 0 0 m 9 0 l W n BT /F 10 Tf (A) Tj Q /F 10 Tf (B) Tj ET"),
              "group[path clip {M 0 0 L 9000 0}; text[F 10 (A) fill Gray 0]]; "
              "text[F 10 (B) at 1,0,0,1,5000,0 fill Gray 0]");
}

TEST(InterpreterText, DamageIsToldAndTheRestIsRead)
{
    EXPECT_EQ(Tree("ET BT /F 10 Tf (A) Tj"),
              "text[F 10 (A) fill Gray 0] | operator ET: there is no text object to end, byte 0 | "
              "a text object that is not ended, byte 21");
    EXPECT_EQ(
        Tree("BT /F 10 Tf BT (A) Tj ET"),
        "text[]; text[F 10 (A) fill Gray 0] | operator BT: a text object inside of a text object, byte 12");
    EXPECT_EQ(
        Tree("BT /F 10 Tf 8 Tr (A) Tj ET"),
        "text[F 10 (A) fill Gray 0] | operator Tr: no text rendering mode has this number (8), byte 12");
    EXPECT_EQ(Tree("BT (A) Tj ET"), "text[] | operator Tj: text without a font, byte 3");
    EXPECT_EQ(Tree("BT /Z 10 Tf ET"), "text[] | operator Tf: font /Z: it is missing, byte 3");
}

TEST(InterpreterText, TextThatIsShownOutsideOfATextObjectIsReadNonetheless)
{
    EXPECT_EQ(Tree("/F 10 Tf (A) Tj 0 0 m 1 0 l S"),
              "text[F 10 (A) fill Gray 0; path {M 0 0 L 1000 0} stroke Gray 0] | "
              "operator Tj: text that is shown outside of a text object, byte 9 | "
              "a text object that is not ended, byte 29");
}

TEST(InterpreterText, TextThatIsShownOutsideOfATextObjectStandsWhereItWasMoved)
{
    EXPECT_EQ(Tree("/F 10 Tf 3 4 Td (A) Tj ET"),
              "text[F 10 (A) at 1,0,0,1,3000,4000 fill Gray 0] | "
              "operator Tj: text that is shown outside of a text object, byte 16");
}

TEST(InterpreterText, AFontMayComeFromAGraphicsState)
{
    Reading reading;
    reading.resources.stateFonts["S"] = {OrvPdf::Testing::MakePlainFont("H"), 7.0};
    reading.resources.states["S"] =
        OrvSys::PdfObject::Dictionary({{"Font", OrvSys::PdfObject::Name(OrvPdf::unresolvedValue)}});
    reading.Read("BT /F 10 Tf (A) Tj 1 0 Td /S gs (B) Tj ET");
    EXPECT_EQ(Tree(reading), "text[F 10 (A) fill Gray 0; H 7 (B) at 1,0,0,1,1000,0 fill Gray 0]");
    EXPECT_TRUE(reading.result.errors.empty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

TEST(InterpreterText, AFontThatIsReplacedIsToldAndUsed)
{
    Reading reading;
    reading.resources.warnings["F"] = "replaced";
    reading.Read("BT /F 10 Tf (A) Tj ET");
    EXPECT_EQ(OrvPdf::Testing::Tree(reading), "text[F 10 (A) fill Gray 0]");
    ASSERT_EQ(reading.result.errors.size(), 1U);
    EXPECT_EQ(reading.result.errors[0], "operator Tf: font /F: replaced, byte 3");
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

} // namespace
