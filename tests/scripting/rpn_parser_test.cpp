#include <harrow_support/rpn_parser.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ios>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

/// Runs a function and returns what it wrote to std::cerr.
template <typename Function>
std::string ErrorTextOf(Function function)
{
    ::testing::internal::CaptureStderr();
    function();
    return ::testing::internal::GetCapturedStderr();
}

/// Parses and returns what went to std::cerr.
std::string ParseAndTakeErrors(RPNParser& parser)
{
    return ErrorTextOf([&] { parser.Parse(); });
}

/// All operands of a parser, the newest first.
std::vector<std::string> PopAll(RPNParser& parser)
{
    std::vector<std::string> operands;
    try {
        for (;;)
            operands.push_back(parser.Pop());
    } catch (const std::runtime_error&) {
        // There is no other way to see that the stack is empty.
    }
    return operands;
}

/// The operands that are left behind a script without commands, the oldest first.
std::vector<std::string> OperandsOf(const std::string& script)
{
    std::istringstream stream(script);
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    std::vector<std::string> operands = PopAll(parser);
    return {operands.rbegin(), operands.rend()};
}

/// What came of a script whose commands only note that they ran.
struct RunOutcome
{
    std::string errors;
    std::vector<std::string> commands;
    std::vector<std::string> operands;
    bool didFinish;
};

RunOutcome RunScript(const std::string& script, const std::vector<std::string>& commandNames)
{
    std::istringstream stream(script);
    RPNParser parser(stream);
    RunOutcome outcome;
    for (const std::string& name : commandNames)
        parser.Register(name, [&outcome, name] { outcome.commands.push_back(name); });
    outcome.errors = ParseAndTakeErrors(parser);
    outcome.didFinish = parser.DidFinish();
    outcome.operands = PopAll(parser);
    return outcome;
}

/// Counts `x` as a space as well.
class ClassWithSpaceX : public std::ctype<char>
{
public:
    ClassWithSpaceX() : std::ctype<char>(MakeTable(), true) {}

private:
    static const mask* MakeTable()
    {
        auto* const table = new mask[table_size];
        std::copy(classic_table(), classic_table() + table_size, table);
        table[static_cast<unsigned char>('x')] |= space;
        return table;
    }
};

/// Turns '\n' into ';' when it widens, so that a script has that at the ends of its lines.
class ClassWithSemicolonLineEnd : public std::ctype<char>
{
protected:
    char do_widen(char character) const override { return character == '\n' ? ';' : character; }
    const char* do_widen(const char* begin, const char* end, char* to) const override
    {
        for (; begin != end; ++begin, ++to)
            *to = do_widen(*begin);
        return end;
    }
};

/// Sets the global locale for the time of a test.
class GlobalLocale
{
public:
    explicit GlobalLocale(const std::locale& locale) : old(std::locale::global(locale)) {}
    ~GlobalLocale() { std::locale::global(old); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

private:
    std::locale old;
};

} // namespace

TEST(RPNParser, HasNotFinishedAtFirst)
{
    std::istringstream stream("a\n");
    const RPNParser parser(stream);
    EXPECT_FALSE(parser.DidFinish());
}

TEST(RPNParser, ReadsNothingBeforeItParses)
{
    std::istringstream stream("a\n");
    RPNParser parser(stream);
    EXPECT_EQ(stream.tellg(), 0);
    EXPECT_THAT(PopAll(parser), IsEmpty());
}

TEST(RPNParser, FinishesAtOnceOnAStreamThatHasFailed)
{
    std::istringstream stream("a\n$run\n");
    stream.setstate(std::ios_base::failbit);
    RPNParser parser(stream);
    bool didRun = false;
    parser.Register("run", [&] { didRun = true; });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_FALSE(didRun);
    EXPECT_THAT(PopAll(parser), IsEmpty());
}

TEST(RPNParser, FinishesAtOnceOnAStreamThatIsBad)
{
    std::istringstream stream("a\n");
    stream.setstate(std::ios_base::badbit);
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), IsEmpty());
}

TEST(RPNParser, FinishesOnAnEmptyStream)
{
    const RunOutcome outcome = RunScript("", {});
    EXPECT_TRUE(outcome.didFinish);
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.operands, IsEmpty());
}

TEST(RPNParser, PushesEachLineAsAnOperand)
{
    EXPECT_THAT(OperandsOf("a\nb\nc\n"), ElementsAre("a", "b", "c"));
}

TEST(RPNParser, TakesAnOperandFromALastLineWithoutALineEnd)
{
    EXPECT_THAT(OperandsOf("a\nb"), ElementsAre("a", "b"));
}

TEST(RPNParser, RunsACommandFromALastLineWithoutALineEnd)
{
    const RunOutcome outcome = RunScript("$run", {"run"});
    EXPECT_THAT(outcome.commands, ElementsAre("run"));
    EXPECT_TRUE(outcome.didFinish);
}

TEST(RPNParser, MakesNoOperandOfTheEndBehindALastLineEnd)
{
    EXPECT_THAT(OperandsOf("a\n"), ElementsAre("a"));
}

TEST(RPNParser, SkipsALineThatBeginsWithAHash)
{
    EXPECT_THAT(OperandsOf("# text\na\n#$run\n"), ElementsAre("a"));
}

TEST(RPNParser, SkipsALineOfAHashAlone)
{
    EXPECT_THAT(OperandsOf("#\na\n#"), ElementsAre("a"));
}

TEST(RPNParser, MakesAnEmptyOperandOfAnEmptyLine)
{
    EXPECT_THAT(OperandsOf("\na\n\n"), ElementsAre("", "a", ""));
}

TEST(RPNParser, MakesAnEmptyOperandOfALineOfBlanks)
{
    EXPECT_THAT(OperandsOf("   \n\t\n"), ElementsAre("", ""));
}

TEST(RPNParser, MakesAnOperandOfAHashBehindBlanks)
{
    EXPECT_THAT(OperandsOf("   # text\n"), ElementsAre("# text"));
}

TEST(RPNParser, TrimsOperandsAtBothEndsOnly)
{
    EXPECT_THAT(OperandsOf(" \t a  b\tc \v\f \n"), ElementsAre("a  b\tc"));
}

TEST(RPNParser, TakesACarriageReturnForABlank)
{
    const RunOutcome outcome = RunScript("a\r\n$run\r\n\r\n", {"run"});
    EXPECT_EQ(outcome.errors, "");
    EXPECT_THAT(outcome.commands, ElementsAre("run"));
    EXPECT_THAT(outcome.operands, ElementsAre("", "a"));
}

TEST(RPNParser, EndsALineAtNoCarriageReturn)
{
    EXPECT_THAT(OperandsOf("a\rb\n"), ElementsAre("a\rb"));
}

TEST(RPNParser, KeepsZeroBytes)
{
    EXPECT_THAT(OperandsOf(std::string("a\0b\n", 4)), ElementsAre(std::string("a\0b", 3)));
}

TEST(RPNParser, SeesNothingSpecialInAHashOrDollarInsideALine)
{
    EXPECT_THAT(OperandsOf("a#b\na$b\na #b\na $b\n"), ElementsAre("a#b", "a$b", "a #b", "a $b"));
}

TEST(RPNParser, RunsACommand)
{
    const RunOutcome outcome = RunScript("$run\n", {"run", "other"});
    EXPECT_THAT(outcome.commands, ElementsAre("run"));
    EXPECT_THAT(outcome.operands, IsEmpty());
    EXPECT_EQ(outcome.errors, "");
    EXPECT_TRUE(outcome.didFinish);
}

TEST(RPNParser, RunsACommandBehindBlanks)
{
    EXPECT_THAT(RunScript("   $run \t\n", {"run"}).commands, ElementsAre("run"));
}

TEST(RPNParser, KeepsBlanksBehindTheDollarInTheName)
{
    const RunOutcome outcome = RunScript("$ run\n", {"run"});
    EXPECT_EQ(outcome.errors, "unknown command\n");
    EXPECT_THAT(outcome.commands, IsEmpty());
    EXPECT_THAT(RunScript("$ run\n", {"run", " run"}).commands, ElementsAre(" run"));
}

TEST(RPNParser, LooksUpTheEmptyNameForADollarAlone)
{
    const RunOutcome outcome = RunScript("$\n", {"run"});
    EXPECT_EQ(outcome.errors, "unknown command\n");
    EXPECT_FALSE(outcome.didFinish);
    EXPECT_THAT(RunScript("$\n", {"run", ""}).commands, ElementsAre(""));
}

TEST(RPNParser, RemovesASingleDollar)
{
    EXPECT_EQ(RunScript("$$x\n", {"x"}).errors, "unknown command\n");
    EXPECT_THAT(RunScript("$$x\n", {"x", "$x"}).commands, ElementsAre("$x"));
}

TEST(RPNParser, TellsUpperFromLowerCaseInNames)
{
    const RunOutcome outcome = RunScript("$Name\n", {"name"});
    EXPECT_EQ(outcome.errors, "unknown command\n");
    EXPECT_THAT(outcome.commands, IsEmpty());
}

TEST(RPNParser, MatchesWholeNamesOnly)
{
    EXPECT_EQ(RunScript("$run\n", {"ru", "runs"}).errors, "unknown command\n");
}

TEST(RPNParser, RunsNamesWithInnerBlanks)
{
    EXPECT_THAT(RunScript("$set name\n", {"set name"}).commands, ElementsAre("set name"));
}

TEST(RPNParser, RunsCommandsInTheOrderOfTheScript)
{
    EXPECT_THAT(RunScript("$b\n$a\n$b\n", {"a", "b"}).commands, ElementsAre("b", "a", "b"));
}

TEST(RPNParser, PopsTheNewestOperandFirst)
{
    std::istringstream stream("a\nb\nc\n$take\n");
    RPNParser parser(stream);
    std::vector<std::string> taken;
    parser.Register("take", [&] {
        for (int i = 0; i < 3; ++i)
            taken.push_back(parser.Pop());
    });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_THAT(taken, ElementsAre("c", "b", "a"));
}

TEST(RPNParser, GivesACommandOnlyWhatStandsAheadOfIt)
{
    std::istringstream stream("a\n$take\nb\n");
    RPNParser parser(stream);
    std::vector<std::string> taken;
    parser.Register("take", [&] { taken = PopAll(parser); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_THAT(taken, ElementsAre("a"));
    EXPECT_THAT(PopAll(parser), ElementsAre("b"));
}

TEST(RPNParser, LeavesOperandsOnTheStackAtTheEnd)
{
    const RunOutcome outcome = RunScript("a\n$run\nb\n", {"run"});
    EXPECT_TRUE(outcome.didFinish);
    EXPECT_THAT(outcome.operands, ElementsAre("b", "a"));
}

TEST(RPNParser, EndsTheScriptAtACommandThatLacksAnOperand)
{
    std::istringstream stream("$take\na\n");
    RPNParser parser(stream);
    parser.Register("take", [&] { parser.Pop(); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "no operand\n");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), IsEmpty());
}

TEST(RPNParser, KeepsTheSecondFunctionOfAName)
{
    std::istringstream stream("$run\n");
    RPNParser parser(stream);
    std::vector<int> calls;
    parser.Register("run", [&] { calls.push_back(1); });
    parser.Register("run", [&] { calls.push_back(2); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_THAT(calls, ElementsAre(2));
}

TEST(RPNParser, RunsACommandThatAnotherOneRegistered)
{
    std::istringstream stream("$make\n$made\n");
    RPNParser parser(stream);
    bool didRun = false;
    parser.Register("make", [&] { parser.Register("made", [&] { didRun = true; }); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(didRun);
}

TEST(RPNParser, StopsAtAnUnknownCommand)
{
    std::istringstream stream("a\nb\n$unknown\nc\nd\n");
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "unknown command\n");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("b", "a"));
    EXPECT_EQ(stream.tellg(), 13);
}

TEST(RPNParser, GoesOnBehindTheLineThatFailed)
{
    std::istringstream stream("a\n$unknown\nb\n");
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "unknown command\n");
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("b", "a"));
}

TEST(RPNParser, StaysFinishedWhenItParsesOnceMore)
{
    std::istringstream stream("a\n");
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    stream.clear();
    stream.str("b\n$unknown\n");
    EXPECT_EQ(ParseAndTakeErrors(parser), "unknown command\n");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("b", "a"));
}

TEST(RPNParser, StopsAtAnEmptyFunction)
{
    std::istringstream stream("$empty\na\n");
    RPNParser parser(stream);
    parser.Register("empty", nullptr);
    EXPECT_EQ(ParseAndTakeErrors(parser), std::string(std::bad_function_call().what()) + "\n");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), IsEmpty());
}

TEST(RPNParser, ReplacesAFunctionByAnEmptyOne)
{
    std::istringstream stream("$run\n");
    RPNParser parser(stream);
    bool didRun = false;
    parser.Register("run", [&] { didRun = true; });
    parser.Register("run", nullptr);
    EXPECT_EQ(ParseAndTakeErrors(parser), std::string(std::bad_function_call().what()) + "\n");
    EXPECT_FALSE(didRun);
}

TEST(RPNParser, PrintsTheTextOfWhatACommandThrows)
{
    std::istringstream stream("a\n$fail\nb\n");
    RPNParser parser(stream);
    parser.Register("fail", [] { throw std::out_of_range("page 7 of 3"); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "page 7 of 3\n");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("a"));
}

TEST(RPNParser, LetsPassWhatIsNoStandardException)
{
    std::istringstream stream("a\n$fail\nb\n");
    RPNParser parser(stream);
    parser.Register("fail", [] { throw 7; });
    EXPECT_EQ(ErrorTextOf([&] { EXPECT_THROW(parser.Parse(), int); }), "");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("b", "a"));
}

TEST(RPNParser, PrintsTheFailureOfAStreamThatThrows)
{
    std::istringstream stream("a\n");
    stream.exceptions(std::ios_base::failbit);
    RPNParser parser(stream);
    const std::string errors = ParseAndTakeErrors(parser);
    EXPECT_EQ(errors, std::string(std::ios_base::failure("basic_ios::clear").what()) + "\n");
    EXPECT_FALSE(parser.DidFinish());
    EXPECT_THAT(PopAll(parser), ElementsAre("a"));
}

TEST(RPNParser, RunsTheRestOfTheScriptInsideACommandThatParses)
{
    std::istringstream stream("a\n$nest\nb\n$note\n");
    RPNParser parser(stream);
    std::vector<std::string> events;
    parser.Register("nest", [&] {
        parser.Parse();
        events.push_back("nested");
    });
    parser.Register("note", [&] { events.push_back(parser.Pop()); });
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_TRUE(parser.DidFinish());
    EXPECT_THAT(events, ElementsAre("b", "nested"));
    EXPECT_THAT(PopAll(parser), ElementsAre("a"));
}

TEST(RPNParser, CopiesOperandsThatThenGoTheirOwnWay)
{
    std::istringstream stream("a\nb\n");
    RPNParser source(stream);
    EXPECT_EQ(ParseAndTakeErrors(source), "");
    RPNParser copy(source);
    EXPECT_EQ(source.Pop(), "b");
    EXPECT_THAT(PopAll(copy), ElementsAre("b", "a"));
    EXPECT_THAT(PopAll(source), ElementsAre("a"));
}

TEST(RPNParser, CopiesWhetherItHasFinished)
{
    std::istringstream stream;
    RPNParser source(stream);
    const RPNParser early(source);
    EXPECT_EQ(ParseAndTakeErrors(source), "");
    const RPNParser late(source);
    EXPECT_FALSE(early.DidFinish());
    EXPECT_TRUE(late.DidFinish());
}

TEST(RPNParser, SharesTheStreamWithItsCopy)
{
    std::istringstream stream("a\n$unknown\nb\n");
    RPNParser source(stream);
    EXPECT_EQ(ParseAndTakeErrors(source), "unknown command\n");
    RPNParser copy(source);
    EXPECT_EQ(ParseAndTakeErrors(copy), "");
    EXPECT_THAT(PopAll(copy), ElementsAre("b", "a"));
    EXPECT_EQ(ParseAndTakeErrors(source), "");
    EXPECT_THAT(PopAll(source), ElementsAre("a"));
}

TEST(RPNParser, CopiesCommandsThatThenGoTheirOwnWay)
{
    std::istringstream stream("$run\n");
    RPNParser source(stream);
    std::vector<std::string> calls;
    source.Register("run", [&] { calls.push_back("of both"); });
    RPNParser copy(source);
    source.Register("run", [&] { calls.push_back("of the source"); });
    EXPECT_EQ(ParseAndTakeErrors(copy), "");
    EXPECT_THAT(calls, ElementsAre("of both"));
}

TEST(RPNParser, LetsACopiedFunctionPopWhereItsReferenceLeads)
{
    std::istringstream stream("a\n$unknown\nb\n$take\n");
    RPNParser source(stream);
    std::vector<std::string> taken;
    source.Register("take", [&] { taken.push_back(source.Pop()); });
    EXPECT_EQ(ParseAndTakeErrors(source), "unknown command\n");
    RPNParser copy(source);
    EXPECT_EQ(ParseAndTakeErrors(copy), "");
    EXPECT_THAT(taken, ElementsAre("a"));
    EXPECT_THAT(PopAll(copy), ElementsAre("b", "a"));
    EXPECT_THAT(PopAll(source), IsEmpty());
}

TEST(RPNParser, LeavesTheStreamUsableWhenItGoes)
{
    std::istringstream stream("$unknown\nb\n");
    {
        RPNParser parser(stream);
        EXPECT_EQ(ParseAndTakeErrors(parser), "unknown command\n");
    }
    std::string line;
    EXPECT_TRUE(std::getline(stream, line));
    EXPECT_EQ(line, "b");
}

TEST(RPNParser, TrimsWhatTheGlobalLocaleCallsSpace)
{
    EXPECT_THAT(OperandsOf("xaxbx\n"), ElementsAre("xaxbx"));
    const GlobalLocale locale(std::locale(std::locale::classic(), new ClassWithSpaceX));
    EXPECT_THAT(OperandsOf("xaxbx\n"), ElementsAre("axb"));
}

TEST(RPNParser, DoesNotTrimByTheLocaleOfTheStream)
{
    std::istringstream stream("xax\n");
    stream.imbue(std::locale(std::locale::classic(), new ClassWithSpaceX));
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_THAT(PopAll(parser), ElementsAre("xax"));
}

TEST(RPNParser, EndsLinesAtWhatTheStreamMakesOfALineEnd)
{
    std::istringstream stream("a;b\nc;");
    stream.imbue(std::locale(std::locale::classic(), new ClassWithSemicolonLineEnd));
    RPNParser parser(stream);
    EXPECT_EQ(ParseAndTakeErrors(parser), "");
    EXPECT_THAT(PopAll(parser), ElementsAre("b\nc", "a"));
}

} // namespace HarrowSupport::Testing
