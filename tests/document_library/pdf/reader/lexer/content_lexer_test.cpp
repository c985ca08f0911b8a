#include "document_library/pdf/reader/lexer_test_support.h"

#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace OrvPdf::LexerTests
{
namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

// ---- operations

TEST(ContentLexer, SplitsIntoOperandsAndOperators)
{
    const Lexed lexed("q 1 0 0 1 72 720 cm\n10 20 m 30.5 -40 l S Q");
    EXPECT_THAT(lexed.operations, ElementsAre("q", "1 0 0 1 72 720 cm", "10 20 m", "30.5 -40 l", "S", "Q"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, EmptyContentHasNoOperations)
{
    EXPECT_THAT(Lexed("").operations, IsEmpty());
    EXPECT_THAT(Lexed(" \n % only a comment").operations, IsEmpty());
    EXPECT_THAT(Lexed(" \n % only a comment").kinds, IsEmpty());
}

TEST(ContentLexer, GivesOffsetsFromFirstOperandToBehindTheOperator)
{
    const Lexed lexed("  1 w  [3 2] 0 d\nS");
    EXPECT_THAT(lexed.ranges, ElementsAre(std::pair(2, 5), std::pair(7, 16), std::pair(17, 18)));
}

TEST(ContentLexer, AllWhiteSpaceSeparates)
{
    const Lexed lexed(std::string("1\0002\t3\n4\f5\r6 cm", 14));
    EXPECT_THAT(lexed.operations, ElementsAre("1 2 3 4 5 6 cm"));
}

TEST(ContentLexer, CommentsAreWhiteSpace)
{
    const Lexed lexed("1 % 2 (\r3%x\n4 re%S\nS%");
    EXPECT_THAT(lexed.operations, ElementsAre("1 3 4 re", "S"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, DelimitersSeparate)
{
    const Lexed lexed("/F1 9 Tf(a)Tj[(b)-3(c)]TJ/P<</MCID 0>>BDC");
    EXPECT_THAT(lexed.operations, ElementsAre("/F1 9 Tf", "(a) Tj", "[(b) -3 (c)] TJ", "/P <</MCID 0>> BDC"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, KnowsQuoteOperators)
{
    EXPECT_THAT(Lexed("(a)' 1 2(b)\"").operations, ElementsAre("(a) '", "1 2 (b) \""));
}

TEST(ContentLexer, UnknownOperatorsAreDelivered)
{
    ContentLexer lexer("1 2 frobnicate");
    ContentOperation operation;
    ASSERT_TRUE(lexer.Next(operation));
    EXPECT_EQ(operation.id, OperatorId::Unknown);
    EXPECT_EQ(operation.operatorText, "frobnicate");
    EXPECT_EQ(operation.operands.size(), 2U);
}

TEST(ContentLexer, KeywordsAreOperands)
{
    EXPECT_THAT(Lexed("true false null [true null] x").operations,
                ElementsAre("true false null [true null] x"));
}

TEST(ContentLexer, ResetBeginsWithOtherContent)
{
    ContentLexer lexer(") S");
    ContentOperation operation;
    ASSERT_TRUE(lexer.Next(operation));
    EXPECT_EQ(lexer.DamageCount(), 1U);
    lexer.Reset("1 w");
    EXPECT_EQ(lexer.DamageCount(), 0U);
    EXPECT_THAT(lexer.Damages(), IsEmpty());
    ASSERT_TRUE(lexer.Next(operation));
    EXPECT_EQ(operation.id, OperatorId::SetLineWidth);
    EXPECT_FALSE(lexer.Next(operation));
}

// ---- numbers

TEST(ContentLexer, ConvertsNumbersAsAsked)
{
    ContentLexer lexer("12.345 -7 .1 1.00000005960464477540 123456789012345678901234567890 /N x");
    ContentOperation operation;
    ASSERT_TRUE(lexer.Next(operation));
    const OperandRange operands = operation.operands;
    EXPECT_EQ(operands[0].AsMilliPoints(), 12345.0);
    EXPECT_EQ(operands[0].AsNumber(), 12.345);
    EXPECT_FALSE(operands[0].IsInteger());
    EXPECT_EQ(operands[1].AsMilliPoints(), -7000.0);
    EXPECT_TRUE(operands[1].IsInteger());
    EXPECT_EQ(operands[2].AsFloat(), 0.1F);
    EXPECT_EQ(operands[3].AsFloat(), 1.00000012F);
    EXPECT_EQ(operands[4].AsNumber(), 123456789012345678901234567890.0);
    EXPECT_EQ(operands[4].AsMilliPoints(), 123456789012345678901234567890e3);
    EXPECT_TRUE(operands[4].IsInteger());
    EXPECT_EQ(operands[5].AsNumber(), 0.0);
    EXPECT_FALSE(operands[5].IsInteger());
}

struct NumberCase
{
    const char* text;
    std::vector<double> values;
    std::vector<DamageKind> damages;
};

TEST(ContentLexer, ReadsNumbersOfRealFiles)
{
    const DamageKind malformed = DamageKind::MalformedNumber;
    const DamageKind unseparated = DamageKind::MissingSeparator;
    const std::vector<NumberCase> cases = {
        {"+.5", {0.5}, {}},
        {"4.", {4}, {}},
        {"-.5", {-0.5}, {}},
        {"--5", {-5}, {malformed}},
        {"5-3", {53}, {malformed}},
        {".", {0}, {malformed}},
        {"-", {0}, {malformed}},
        {"1.2.3", {1.2, 0.3}, {unseparated}},
        {"5+3", {5, 3}, {unseparated}},
        {"0.5.", {0.5}, {malformed}},
        {"1e3", {1000}, {malformed}},
        {"25E-1", {2.5}, {malformed}},
        {"1e+2", {100}, {malformed}},
        {"12345678901234567890123e-3", {12345678901234567890.123}, {malformed}},
        {"1e99999999999999", {1.7976931348623157e308}, {malformed}},
        {"1e-99999999999999", {0}, {malformed}},
    };
    for (const NumberCase& number : cases) {
        SCOPED_TRACE(number.text);
        const std::string content = std::string(number.text) + " x";
        ContentLexer lexer(content);
        ContentOperation operation;
        ASSERT_TRUE(lexer.Next(operation));
        std::vector<double> values;
        for (const Operand& operand : operation.operands) {
            values.push_back(operand.AsNumber());
        }
        EXPECT_EQ(values, number.values);
        EXPECT_EQ(operation.operatorText, "x");
        std::vector<DamageKind> kinds;
        for (const auto& damage : lexer.Damages()) {
            kinds.push_back(damage.kind);
        }
        EXPECT_EQ(kinds, number.damages);
    }
}

TEST(ContentLexer, NumberDirectlyBeforeAnOperatorIsTaken)
{
    const Lexed lexed("1 0 0 1 5 6cm");
    EXPECT_THAT(lexed.operations, ElementsAre("1 0 0 1 5 6 cm"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::MissingSeparator));
}

TEST(ContentLexer, NumberAtTheVeryEndIsReadWithinBounds)
{
    for (const char* text : {"1", "1.", "-", "1e", "1e-", "1-", "."}) {
        EXPECT_THAT(Lexed(text).operations, testing::SizeIs(testing::Le(1))) << text;
    }
}

// ---- names and strings

TEST(ContentLexer, DecodesNames)
{
    const Lexed lexed("/A#42 /#2F#28 / /A#4 /A#zz /#C3#a9 x");
    EXPECT_THAT(lexed.operations, ElementsAre("/AB //( / /A#4 /A#zz /\xC3\xA9 x"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, NamesMayHaveBytesBeyondAscii)
{
    const Lexed lexed("/\xC3\xA9t\xC3\xA9 gs");
    EXPECT_THAT(lexed.operations, ElementsAre("/\xC3\xA9t\xC3\xA9 gs"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, DecodesLiteralStrings)
{
    EXPECT_THAT(Lexed("() Tj").operations, ElementsAre("() Tj"));
    EXPECT_THAT(Lexed("(a(b(c))d) Tj").operations, ElementsAre("(a(b(c))d) Tj"));
    EXPECT_THAT(Lexed(R"((\(\)\\\n\r\t\b\f\q) Tj)").operations, ElementsAre("(()\\\n\r\t\b\fq) Tj"));
    EXPECT_THAT(Lexed(R"((\101\60\0611\0478) Tj)").operations, ElementsAre("(A011'8) Tj"));
    EXPECT_THAT(Lexed(R"((\501) Tj)").operations, ElementsAre("(A) Tj"));
    EXPECT_THAT(Lexed("(a\\\nb\\\r\nc\\\rd) Tj").operations, ElementsAre("(abcd) Tj"));
    EXPECT_THAT(Lexed("(a\nb\r\nc\rd) Tj").operations, ElementsAre("(a\nb\nc\nd) Tj"));
    EXPECT_THAT(Lexed("(a)(b\\)c)(d) x").operations, ElementsAre("(a) (b)c) (d) x"));
}

TEST(ContentLexer, OctalZeroIsAByte)
{
    EXPECT_THAT(Lexed(R"((\0a) Tj)").operations, ElementsAre(std::string("(\0a) Tj", 7)));
}

TEST(ContentLexer, DecodesHexStrings)
{
    const Lexed lexed("<41 42\n4a4B> <414> <> x");
    EXPECT_THAT(lexed.operations, ElementsAre("h(ABJK) h(A@) h() x"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, LeavesOutOtherCharactersOfHexStrings)
{
    const Lexed lexed("<4g1> x");
    EXPECT_THAT(lexed.operations, ElementsAre("h(A) x"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::BadHexadecimalDigit));
}

TEST(ContentLexer, UnclosedStringGoesToTheEnd)
{
    for (const char* text : {"S (abc", "S (a(b)", "S (abc\\", "S <414", "S <", "S ("}) {
        const Lexed lexed(text);
        EXPECT_THAT(lexed.operations, ElementsAre("S")) << text;
        EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::UnclosedString, DamageKind::OperandsWithoutOperator))
            << text;
    }
}

TEST(ContentLexer, DecodedStringsOfOneOperationStayTogether)
{
    std::string content = "[";
    std::string expected = "[";
    for (int i = 0; i < 2000; ++i) {
        content += "(\\101" + std::to_string(i) + ")";
        expected += (i == 0 ? "(A" : " (A") + std::to_string(i) + ")";
    }
    EXPECT_THAT(Lexed(content + "] TJ").operations, ElementsAre(expected + "] TJ"));
}

TEST(ContentLexer, StringsAreCutOffAtTheLimit)
{
    ContentLexerLimits limits;
    limits.stringBytes = 3;
    const Lexed lexed("(abc) (abcd) /abcd <61626364> x", limits);
    EXPECT_THAT(lexed.operations, ElementsAre("(abc) (abc) /abc h(abc) x"));
    EXPECT_THAT(lexed.kinds,
                ElementsAre(DamageKind::StringTooLong, DamageKind::StringTooLong, DamageKind::StringTooLong));
}

// ---- containers

TEST(ContentLexer, NestsArraysAndDictionaries)
{
    const Lexed lexed("/A <</B [1 [2 <</C (d)>>] []] /E <<>>>> [3] 4 x");
    EXPECT_THAT(lexed.operations, ElementsAre("/A <</B [1 [2 <</C (d)>>] []] /E <<>>>> [3] 4 x"));
    EXPECT_THAT(lexed.kinds, IsEmpty());
}

TEST(ContentLexer, IndexesOperandsBehindContainers)
{
    ContentLexer lexer("[1 [2] 3] 4 <</K 5>> 6 x");
    ContentOperation operation;
    ASSERT_TRUE(lexer.Next(operation));
    ASSERT_EQ(operation.operands.size(), 4U);
    EXPECT_EQ(operation.operands[0].Elements()[2].AsNumber(), 3);
    EXPECT_EQ(operation.operands[1].AsNumber(), 4);
    EXPECT_EQ(operation.operands[3].AsNumber(), 6);
    EXPECT_EQ(operation.operands[0].AsNumber(), 0);
    EXPECT_TRUE(operation.operands[1].Elements().empty());
}

TEST(ContentLexer, FindsValuesOfDictionaries)
{
    ContentLexer lexer("/P <</A [/K 1] /K 2 /L /A /Last>> BDC");
    ContentOperation operation;
    ASSERT_TRUE(lexer.Next(operation));
    const OperandRange elements = operation.operands[1].Elements();
    ASSERT_NE(elements.FindValue("K"), nullptr);
    EXPECT_EQ(elements.FindValue("K")->AsNumber(), 2);
    EXPECT_EQ(elements.FindValue("L")->Text(), "A");
    EXPECT_EQ(elements.FindValue("Long", "L")->Text(), "A");
    EXPECT_EQ(elements.FindValue("Z"), nullptr);
    EXPECT_EQ(elements.FindValue("Last"), nullptr);
    EXPECT_EQ(lexer.DamageCount(), 1U);
}

TEST(ContentLexer, ReportsDictionariesThatAreNoPairs)
{
    const Lexed odd("/P <</A>> BDC");
    EXPECT_THAT(odd.operations, ElementsAre("/P <</A>> BDC"));
    EXPECT_THAT(odd.kinds, ElementsAre(DamageKind::MalformedDictionary));
    EXPECT_THAT(Lexed("/P <<1 2>> BDC").kinds, ElementsAre(DamageKind::MalformedDictionary));
}

TEST(ContentLexer, StrayDelimitersAreLeftOut)
{
    for (const char* delimiter : {")", "]", ">>", ">", "{", "}"}) {
        const Lexed lexed("1 " + std::string(delimiter) + " 2 x");
        EXPECT_THAT(lexed.operations, ElementsAre("1 2 x")) << delimiter;
        EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::StrayDelimiter)) << delimiter;
    }
}

TEST(ContentLexer, ClosingMarkOfAnOuterContainerClosesTheInnerOnes)
{
    const Lexed dictionary("/P <</A [1 [2 >> BDC");
    EXPECT_THAT(dictionary.operations, ElementsAre("/P <</A [1 [2]]>> BDC"));
    EXPECT_THAT(dictionary.kinds, ElementsAre(DamageKind::UnclosedContainer, DamageKind::UnclosedContainer));
    EXPECT_THAT(Lexed("[1 <</A 2 ] x").operations, ElementsAre("[1 <</A 2>>] x"));
    EXPECT_THAT(Lexed("[1 >> 2 ] x").operations, ElementsAre("[1 2] x"));
    EXPECT_THAT(Lexed("<</A ] 2 >> x").operations, ElementsAre("<</A 2>> x"));
}

TEST(ContentLexer, KnownOperatorClosesContainers)
{
    const Lexed lexed("[(a) -5 (b) TJ 1 w");
    EXPECT_THAT(lexed.operations, ElementsAre("[(a) -5 (b)] TJ", "1 w"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::UnclosedContainer));
}

TEST(ContentLexer, OtherWordsInContainersAreLeftOut)
{
    const Lexed lexed("[1 0 R 2] x");
    EXPECT_THAT(lexed.operations, ElementsAre("[1 0 2] x"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::StrayToken));
}

TEST(ContentLexer, NullStandsForWhatIsNestedTooDeep)
{
    ContentLexerLimits limits;
    limits.nesting = 2;
    EXPECT_THAT(Lexed("[[1]] x", limits).kinds, IsEmpty());
    const Lexed lexed("[[1 [2 <</A (b)>> <41> /N] 3] 4] 5 x", limits);
    EXPECT_THAT(lexed.operations, ElementsAre("[[1 null 3] 4] 5 x"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::NestingTooDeep));
}

TEST(ContentLexer, OperatorEndsWhatIsNestedTooDeep)
{
    ContentLexerLimits limits;
    limits.nesting = 0;
    const Lexed lexed("1 [2 [3 w 4 w", limits);
    EXPECT_THAT(lexed.operations, ElementsAre("1 null w", "4 w"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::NestingTooDeep, DamageKind::UnclosedContainer));
}

// ---- limits and damage

TEST(ContentLexer, KeepsTheLastOfTooManyOperands)
{
    ContentLexerLimits limits;
    limits.operands = 64;
    EXPECT_THAT(Lexed(Repeated("1 ", 64) + "w", limits).kinds, IsEmpty());
    const Lexed lexed(Repeated("[1 2] ", 64) + "(last) 7 w 8 w", limits);
    ASSERT_EQ(lexed.operations.size(), 2U);
    EXPECT_EQ(lexed.operations[0], Repeated("[1 2] ", 32) + "(last) 7 w");
    EXPECT_EQ(lexed.operations[1], "8 w");
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::TooManyOperands));
}

TEST(ContentLexer, KeepsTheFirstOfTooManyElements)
{
    ContentLexerLimits limits;
    limits.operands = 64;
    limits.elements = 36;
    const Lexed lexed("9 [" + Repeated("1 ", 200) + "[2] ] 3 x", limits);
    ASSERT_EQ(lexed.operations.size(), 1U);
    EXPECT_EQ(lexed.operations[0], "9 [1" + Repeated(" 1", 35) + "] 3 x");
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::TooManyElements));
}

TEST(ContentLexer, LongOperatorIsLeftOutWithItsOperands)
{
    ContentLexerLimits limits;
    limits.operatorBytes = 5;
    const Lexed lexed("1 abcde 2 abcdef 3 w", limits);
    EXPECT_THAT(lexed.operations, ElementsAre("1 abcde", "3 w"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::OperatorTooLong));
}

TEST(ContentLexer, GarbageBytesAreLeftOut)
{
    const Lexed lexed("1 \x80\xFF\x01 2 m\x7F 3 w");
    EXPECT_THAT(lexed.operations, ElementsAre("1 2 3 w"));
    EXPECT_THAT(lexed.kinds, ElementsAre(DamageKind::GarbageBytes, DamageKind::GarbageBytes));
}

TEST(ContentLexer, ReportsOperandsWithoutOperatorAtTheEnd)
{
    const Lexed lexed("S 1 2 ");
    EXPECT_THAT(lexed.operations, ElementsAre("S"));
    ASSERT_THAT(lexed.kinds, ElementsAre(DamageKind::OperandsWithoutOperator));
    EXPECT_EQ(lexed.lexer.Damages()[0].begin, 2U);
}

TEST(ContentLexer, NeighbouringDamagesOfOneKindAreOne)
{
    const Lexed lexed("S ))) ) S");
    EXPECT_EQ(lexed.lexer.DamageCount(), 2U);
    EXPECT_EQ(lexed.lexer.Damages()[0].begin, 2U);
    EXPECT_EQ(lexed.lexer.Damages()[0].end, 5U);
}

TEST(ContentLexer, FurtherDamagesAreCounted)
{
    ContentLexerLimits limits;
    limits.damages = 2;
    const Lexed lexed(") ) ) ) S", limits);
    EXPECT_EQ(lexed.kinds.size(), 2U);
    EXPECT_EQ(lexed.lexer.DamageCount(), 4U);
}

TEST(ContentLexer, EveryDamageHasAText)
{
    for (int kind = 0; kind < static_cast<int>(DamageKind::Count); ++kind) {
        EXPECT_FALSE(OrvPdf::DamageText(static_cast<DamageKind>(kind)).empty());
    }
}

} // namespace
} // namespace OrvPdf::LexerTests
