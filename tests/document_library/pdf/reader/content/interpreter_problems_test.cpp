#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::Testing::DamagedText;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using testing::ElementsAre;
using testing::IsEmpty;

Reading ReadingOf(std::string_view stream)
{
    Reading reading;
    reading.Read(stream);
    return reading;
}

TEST(InterpreterProblems, AnEmptyStreamHasNone)
{
    const Reading reading = ReadingOf("");
    EXPECT_EQ(Tree(reading), "");
    EXPECT_THAT(reading.result.errors, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_THAT(reading.result.damaged, IsEmpty());
}

TEST(InterpreterProblems, OperatorsWithoutAPlaceInTheModelAreCounted)
{
    const Reading reading = ReadingOf("BT (a) Tj (b) Tj ET /Im1 Do /Im1 Do /Im2 Do /Sh1 sh");
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_THAT(reading.result.damaged, IsEmpty());
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator Tj: text without a font, byte 3 and 1 more",
                            "operator Do: resource /Im1: it is missing, byte 20 and 1 more",
                            "operator Do: resource /Im2: it is missing, byte 36",
                            "operator sh: shading /Sh1: it is missing, byte 44"));
}

TEST(InterpreterProblems, InlineImagesThatCannotBeReadAreTold)
{
    const Reading reading = ReadingOf("BI /W 1 /H 1 /CS /G /BPC 8 ID x EI n");
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator BI: the inline image is left out: there are no pictures here, byte 0"));
}

TEST(InterpreterProblems, UnknownOperatorsAreDamaged)
{
    const Reading reading = ReadingOf("1 2 xyz n");
    EXPECT_FALSE(reading.result.hasUnmodelled);
    EXPECT_THAT(reading.result.errors, ElementsAre("operator xyz: unknown operator, byte 0"));
    EXPECT_EQ(DamagedText("1 2 xyz n"), "1 2 xyz");
}

TEST(InterpreterProblems, UnknownOperatorsInACompatibilitySectionAreUnmodelled)
{
    const Reading reading = ReadingOf("BX BX EX 1 xyz EX abc");
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator xyz: unknown operator in a compatibility section, byte 9",
                            "operator abc: unknown operator, byte 18"));
}

TEST(InterpreterProblems, ACompatibilitySectionEndsOnce)
{
    EXPECT_EQ(Tree("BX EX EX"), " | operator EX: there is no compatibility section to end, byte 6");
}

TEST(InterpreterProblems, OperatorsThatHaveNoPlaceInAPageAreDamaged)
{
    EXPECT_EQ(DamagedText("1 0 d0 n 1 2 3 4 5 6 d1 n EI n ID"), "1 0 d0|1 2 3 4 5 6 d1|EI|ID");
}

TEST(InterpreterProblems, TooFewOperandsAreDamaged)
{
    EXPECT_EQ(Tree("1 m"), " | operator m: too few operands, byte 0");
    EXPECT_EQ(Tree("w"), " | operator w: too few operands, byte 0");
}

TEST(InterpreterProblems, OfTooManyOperandsTheLastOnesCount)
{
    EXPECT_EQ(
        Tree("7 8 0 0 m S"),
        "path {M 0 0} stroke Gray 0 | operator m: more operands than it takes; the last ones count, byte 0");
    EXPECT_EQ(
        Tree("[1] [2] 0 0 m S"),
        "path {M 0 0} stroke Gray 0 | operator m: more operands than it takes; the last ones count, byte 0");
    EXPECT_EQ(
        Tree("0 0 m 5 S"),
        "path {M 0 0} stroke Gray 0 | operator S: more operands than it takes; the last ones count, byte 6");
}

TEST(InterpreterProblems, OperandsOfTheWrongTypeAreDamaged)
{
    EXPECT_EQ(Tree("(a) 0 m"), " | operator m: an operand of the wrong type, byte 0");
    EXPECT_EQ(Tree("1 2 d"), " | operator d: an operand of the wrong type, byte 0");
    EXPECT_EQ(Tree("/T (a) BDC"), " | operator BDC: an operand of the wrong type, byte 0");
    EXPECT_EQ(Tree("1 gs"), " | operator gs: an operand of the wrong type, byte 0");
}

TEST(InterpreterProblems, DamagesThatDirectlyFollowOneAnotherAreOnePart)
{
    EXPECT_EQ(DamagedText("x y\nz n x"), "x y\nz|x");
}

TEST(InterpreterProblems, DamagesAroundAGoodOperatorAreTwoParts)
{
    EXPECT_EQ(DamagedText("x q y"), "x|y");
}

TEST(InterpreterProblems, DamagesOfTheSyntaxStandAmongThoseOfOperatorsInOrder)
{
    EXPECT_EQ(DamagedText("n ) n x n } n"), ")|x|}");
    EXPECT_THAT(ReadingOf("n ) n x n } n").result.errors,
                ElementsAre("delimiter that closes nothing, byte 2 and 1 more",
                            "operator x: unknown operator, byte 6"));
}

TEST(InterpreterProblems, OnlyTheConstructionOfAnUnfinishedPathIsDamaged)
{
    EXPECT_EQ(DamagedText("q 0 0 m 1 1 l Q 2 2 l W 3 3 l"), "0 0 m 1 1 l|2 2 l W 3 3 l");
}

TEST(InterpreterProblems, AFinishedPathIsNotDamaged)
{
    EXPECT_EQ(DamagedText("0 0 m 1 1 l S"), "");
}

TEST(InterpreterProblems, BytesThatArePrintedNowhereAreSpelledOut)
{
    EXPECT_EQ(Tree("/a#0Ab#FF Do"), " | operator Do: resource /a#0Ab#FF: it is missing, byte 0");
}

TEST(InterpreterProblems, VeryLongNamesAreCutOff)
{
    EXPECT_EQ(Tree("/" + std::string(128, 'x') + " Do"),
              " | operator Do: resource /" + std::string(127, 'x') + "...: it is missing, byte 0");
    EXPECT_EQ(Tree("/" + std::string(127, 'x') + " Do"),
              " | operator Do: resource /" + std::string(127, 'x') + ": it is missing, byte 0");
}

TEST(InterpreterProblems, OddNumbersAreReadAndTold)
{
    const Reading reading = ReadingOf("--5 0 m S");
    EXPECT_EQ(Tree(reading), "path {M -5000 0} stroke Gray 0");
    EXPECT_THAT(reading.result.errors, ElementsAre("malformed number, byte 0"));
    EXPECT_THAT(reading.result.damaged, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

} // namespace
