#include "orv_color/calculator.h"

#include "orv_color/calculator_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace OrvColor::Detail
{
namespace
{

using testing::DoubleNear;
using testing::ElementsAre;

std::vector<double> RunProgram(const std::string& program, const std::vector<double>& inputs = {})
{
    const auto result = RunCalculator(program, inputs);
    if (!result)
        ADD_FAILURE() << program << " fails.";
    return result.value_or(std::vector<double>());
}

TEST(CalculatorTest, LeavesItsInputsOnTheStack)
{
    EXPECT_THAT(RunProgram("{}", {0.25, 0.5}), ElementsAre(0.25, 0.5));
}

struct Sample
{
    const char* program;
    double result;
};

class CalculatorOperatorTest : public testing::TestWithParam<Sample>
{};

TEST_P(CalculatorOperatorTest, GivesItsResult)
{
    EXPECT_THAT(RunProgram(GetParam().program), ElementsAre(DoubleNear(GetParam().result, 1e-12)));
}

constexpr Sample Samples[] = {
    {"{-3 abs}", 3},
    {"{1 2 add}", 3},
    {"{1 2.5 sub}", -1.5},
    {"{2 3 mul}", 6},
    {"{1 4 div}", 0.25},
    {"{-7 2 idiv}", -3},
    {"{-7 3 mod}", -1},
    {"{2 neg}", -2},
    {"{1.2 ceiling}", 2},
    {"{-1.2 floor}", -2},
    {"{-2.5 round}", -2},
    {"{2.5 round}", 3},
    {"{-1.7 truncate}", -1},
    {"{9 sqrt}", 3},
    {"{30 sin}", 0.5},
    {"{60 cos}", 0.5},
    {"{1 0 atan}", 90},
    {"{-1 0 atan}", 270},
    {"{2 3 exp}", 8},
    {"{1 ln}", 0},
    {"{1000 log}", 3},
    {"{3.9 cvi}", 3},
    {"{3 cvr}", 3},
    {"{6 3 and}", 2},
    {"{6 3 or}", 7},
    {"{6 3 xor}", 5},
    {"{0 not}", -1},
    {"{1 4 bitshift}", 16},
    {"{16 -3 bitshift}", 2},
    {"{1 99 bitshift}", 0},
    {"{1 2 lt {5} {6} ifelse}", 5},
    {"{2 2 le {5} {6} ifelse}", 5},
    {"{1 2 gt {5} {6} ifelse}", 6},
    {"{2 2 ge {5} {6} ifelse}", 5},
    {"{2 2.0 eq {5} {6} ifelse}", 5},
    {"{1 2 ne {5} {6} ifelse}", 5},
    {"{true false or not {5} {6} ifelse}", 6},
    {"{true true xor {5} {6} ifelse}", 6},
    {"{5 true {pop 6} if}", 6},
    {"{5 false {pop 6} if}", 5},
    {"{true {false {1} {2} ifelse} {3} ifelse}", 2},
    {"{ % a comment }\n7 }", 7},
};

INSTANTIATE_TEST_SUITE_P(Operators, CalculatorOperatorTest, testing::ValuesIn(Samples));

TEST(CalculatorTest, TellsTruthFromNumbers)
{
    EXPECT_THAT(RunProgram("{true 1 eq {1} {0} ifelse}"), ElementsAre(0));
    EXPECT_THAT(RunProgram("{0 false ne {1} {0} ifelse}"), ElementsAre(1));
    EXPECT_THAT(RunProgram("{true true eq {1} {0} ifelse}"), ElementsAre(1));
    for (const char* order : {"lt", "le", "gt", "ge"})
        EXPECT_FALSE(RunCalculator(std::string("{true 1 ") + order + "}", {})) << order;
}

TEST(CalculatorTest, MovesTheStack)
{
    EXPECT_THAT(RunProgram("{1 2 exch}"), ElementsAre(2, 1));
    EXPECT_THAT(RunProgram("{1 dup}"), ElementsAre(1, 1));
    EXPECT_THAT(RunProgram("{1 2 pop}"), ElementsAre(1));
    EXPECT_THAT(RunProgram("{1 2 3 2 copy}"), ElementsAre(1, 2, 3, 2, 3));
    EXPECT_THAT(RunProgram("{1 2 3 2 index}"), ElementsAre(1, 2, 3, 1));
    EXPECT_THAT(RunProgram("{1 2 3 3 1 roll}"), ElementsAre(3, 1, 2));
    EXPECT_THAT(RunProgram("{1 2 3 3 -1 roll}"), ElementsAre(2, 3, 1));
    EXPECT_THAT(RunProgram("{1 2 3 2 -2147483648 roll}"), ElementsAre(1, 2, 3));
    EXPECT_THAT(RunProgram("{1 0 5 roll}"), ElementsAre(1));
}

TEST(CalculatorTest, RefusesMalformedPrograms)
{
    for (const char* program : {"", "{", "}", "{} {}", "1 2 add", "{1 2 plus}", "{true {1}}",
                                "{true {1} {2} if}", "{true {1} ifelse}", "{1e5}", "{/name}", "{if}"})
        EXPECT_FALSE(RunCalculator(program, {})) << program;
}

TEST(CalculatorTest, RefusesWhatPostScriptForbids)
{
    for (const char* program :
         {"{pop}", "{1 add}", "{dup}", "{1 exch}", "{1 0 div}", "{1 0 idiv}", "{1 0 mod}", "{-1 sqrt}",
          "{0 ln}", "{1 2 copy}", "{1 -1 copy}", "{1 1 index}", "{1 5 1 roll}", "{9999999999 cvi}",
          "{1 {2} if}", "{true 1 add}", "{true 1 and}", "{true}", "{-2147483648 -1 idiv bitshift}"})
        EXPECT_FALSE(RunCalculator(program, {})) << program;
}

TEST(CalculatorTest, HoldsAHundredNumbersAndNoMore)
{
    EXPECT_TRUE(RunCalculator("{1}", std::vector<double>(99, 0.0)));
    EXPECT_FALSE(RunCalculator("{1}", std::vector<double>(100, 0.0)));
}

TEST(CalculatorTest, RefusesDeepNesting)
{
    const auto nest = [](std::size_t levels) {
        std::string program = "{1}";
        for (std::size_t level = 0; level < levels; ++level)
            program = "{true " + program + " if}";
        return program;
    };
    EXPECT_TRUE(RunCalculator(nest(32), {}));
    EXPECT_FALSE(RunCalculator(nest(33), {}));
}

TEST(CalculatorTest, RefusesLongPrograms)
{
    EXPECT_TRUE(RunCalculator("{" + std::string(MaxCalculatorBytes - 2, ' ') + "}", {}));
    EXPECT_FALSE(RunCalculator("{" + std::string(MaxCalculatorBytes - 1, ' ') + "}", {}));
}

} // namespace
} // namespace OrvColor::Detail
