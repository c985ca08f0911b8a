#include "orv_color/calculator_program.h"

#include "orv_sys/decimal.h"

#include <iterator>
#include <utility>

namespace OrvColor::Detail
{

namespace
{

constexpr std::size_t MaxNesting = 32;

// In the order of the enumerators.
constexpr std::string_view OperatorNames[] = {
    "abs",   "add", "and",  "atan",  "bitshift", "ceiling", "copy",  "cos",  "cvi",      "cvr",
    "div",   "dup", "eq",   "exch",  "exp",      "false",   "floor", "ge",   "gt",       "idiv",
    "index", "le",  "ln",   "log",   "lt",       "mod",     "mul",   "ne",   "neg",      "not",
    "or",    "pop", "roll", "round", "sin",      "sqrt",    "sub",   "true", "truncate", "xor"};

using Code = std::vector<Instruction>;

class Compiler
{
public:
    explicit Compiler(std::string_view givenProgram) : program(givenProgram) {}

    boost::optional<Code> Compile()
    {
        Code code;
        if (NextToken() != "{" || !CompileBlock(code, 0) || !NextToken().empty())
            return boost::none;
        return code;
    }

private:
    static bool IsSpace(char character)
    {
        return character == ' ' || character == '\t' || character == '\r' || character == '\n' ||
               character == '\f' || character == '\0';
    }

    void SkipSpace()
    {
        bool comment = false;
        for (; place < program.size(); ++place) {
            const char character = program[place];
            if (character == '%')
                comment = true;
            else if (character == '\r' || character == '\n')
                comment = false;
            else if (!comment && !IsSpace(character))
                return;
        }
    }

    // Empty at the end of the program.
    std::string_view NextToken()
    {
        SkipSpace();
        const std::size_t start = place;
        if (place < program.size() && (program[place] == '{' || program[place] == '}'))
            return program.substr(start, (++place, 1));
        while (place < program.size() && !IsSpace(program[place]) && program[place] != '{' &&
               program[place] != '}' && program[place] != '%')
            ++place;
        return program.substr(start, place - start);
    }

    bool CompileBlock(Code& code, std::size_t depth)
    {
        if (depth > MaxNesting)
            return false;
        for (std::string_view token = NextToken(); token != "}"; token = NextToken()) {
            if (token.empty())
                return false;
            if (token == "{" ? !CompileCondition(code, depth) : !CompileToken(code, token))
                return false;
        }
        return true;
    }

    bool CompileCondition(Code& code, std::size_t depth)
    {
        Code whenTrue;
        Code whenFalse;
        if (!CompileBlock(whenTrue, depth + 1))
            return false;
        std::string_view token = NextToken();
        if (token == "{") {
            if (!CompileBlock(whenFalse, depth + 1) || NextToken() != "ifelse")
                return false;
            whenTrue.push_back({Operator::Jump, static_cast<double>(whenFalse.size())});
        } else if (token != "if") {
            return false;
        }
        code.push_back({Operator::JumpIfFalse, static_cast<double>(whenTrue.size())});
        code.insert(code.end(), whenTrue.begin(), whenTrue.end());
        code.insert(code.end(), whenFalse.begin(), whenFalse.end());
        return true;
    }

    static bool CompileToken(Code& code, std::string_view token)
    {
        if (OrvSys::Detail::IsDecimal(token)) {
            const bool integer = token.find('.') == std::string_view::npos;
            code.push_back(
                {integer ? Operator::PushInteger : Operator::Push, OrvSys::Detail::ParseDecimal(token)});
            return true;
        }
        for (std::size_t index = 0; index < std::size(OperatorNames); ++index) {
            if (token == OperatorNames[index]) {
                code.push_back({static_cast<Operator>(index)});
                return true;
            }
        }
        return false;
    }

    std::string_view program;
    std::size_t place = 0;
};

} // namespace

boost::optional<Code> CompileCalculator(std::string_view program)
{
    if (program.size() > MaxCalculatorBytes)
        return boost::none;
    return Compiler(program).Compile();
}

} // namespace OrvColor::Detail
