#include "support/command_line.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace Examples
{
namespace
{

using ::testing::ElementsAre;

const CommandLineForm oneOrMore{{"--password"}, {}, {"OUT", "FILE..."}};

/// What is wrong with a command line; empty if nothing is.
std::string Complaint(const std::vector<std::string>& arguments, const CommandLineForm& form)
{
    try {
        ReadCommandLine(arguments, form);
        return "";
    } catch (const UsageError& error) {
        return error.what();
    }
}

TEST(CommandLine, TakesOneOfAnOperandWithDots)
{
    EXPECT_THAT(ReadCommandLine({"out", "a"}, oneOrMore).operands, ElementsAre("out", "a"));
}

TEST(CommandLine, TakesManyOfAnOperandWithDotsInTheirOrder)
{
    EXPECT_THAT(ReadCommandLine({"out", "b", "--password", "c", "a", "b"}, oneOrMore).operands,
                ElementsAre("out", "b", "a", "b"));
}

TEST(CommandLine, NeedsOneOfAnOperandWithDots)
{
    EXPECT_EQ(Complaint({"out"}, oneOrMore), "no FILE is given");
}

TEST(CommandLine, NamesTheFirstOperandThatIsNotGiven)
{
    EXPECT_EQ(Complaint({}, oneOrMore), "no OUT is given");
}

TEST(CommandLine, TakesOneOfAnOperandWithoutDots)
{
    EXPECT_EQ(Complaint({"a", "b", "c"}, {{}, {}, {"FILE"}}), "there is an argument too many: 'b'");
}

} // namespace
} // namespace Examples
