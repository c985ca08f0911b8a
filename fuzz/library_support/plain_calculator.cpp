#include "library_support/plain_calculator.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "orv_sys/decimal.h"

namespace HarrowSupport::Fuzzing
{

namespace
{

struct Failure
{};

/// A word, or a procedure with all that stands in it.
struct Part
{
    std::string word;
    std::vector<Part> procedure;
    bool isProcedure = false;
};

std::vector<std::string> SplitWords(std::string_view program)
{
    std::vector<std::string> words(1);
    bool isComment = false;
    for (const char byte : program) {
        isComment = byte == '%' || (isComment && byte != '\r' && byte != '\n');
        const bool isBrace = byte == '{' || byte == '}';
        const bool isBlank = std::string_view(" \t\r\n\f\0", 6).find(byte) != std::string_view::npos;
        if (isComment || isBlank) {
            words.emplace_back();
        } else if (isBrace) {
            words.emplace_back(1, byte);
            words.emplace_back();
        } else {
            words.back() += byte;
        }
    }
    words.erase(std::remove(words.begin(), words.end(), std::string()), words.end());
    return words;
}

/// The parts up to the brace that closes the procedure, behind which `place` stands then.
std::vector<Part> ReadProcedure(const std::vector<std::string>& words, std::size_t& place, std::size_t levels)
{
    std::vector<Part> parts;
    for (;;) {
        if (place == words.size())
            throw Failure();
        const std::string& word = words[place++];
        if (word == "}")
            return parts;
        if (word != "{")
            parts.push_back({word, {}, false});
        else if (levels == 0)
            throw Failure();
        else
            parts.push_back({"", ReadProcedure(words, place, levels - 1), true});
    }
}

struct Value
{
    double number = 0.0;
    bool isBoolean = false;
};

double ToWhole(double number)
{
    const double whole = std::trunc(number);
    if (!(whole >= -2147483648.0 && whole <= 2147483647.0))
        throw Failure();
    return whole;
}

std::int32_t ToBits(double number)
{
    return static_cast<std::int32_t>(ToWhole(number));
}

double ToDegrees(double up, double right)
{
    const double degrees = std::atan2(up, right) / (3.14159265358979323846 / 180.0);
    return degrees < 0.0 ? degrees + 360.0 : degrees;
}

double Shift(double bits, double count)
{
    const std::int32_t places = ToBits(count);
    const auto given = static_cast<std::uint32_t>(ToBits(bits));
    if (places <= -32 || places >= 32)
        return 0.0;
    return static_cast<std::int32_t>(places < 0 ? given >> -places : given << places);
}

double Divide(double left, double right)
{
    const double divisor = ToWhole(right);
    if (divisor == 0.0)
        throw Failure();
    return std::trunc(ToWhole(left) / divisor);
}

using Unary = double (*)(double);
using Binary = double (*)(double, double);

double ToRadians(double degrees)
{
    return degrees * (3.14159265358979323846 / 180.0);
}

const std::map<std::string, Unary>& GetUnaries()
{
    static const std::map<std::string, Unary> unaries = {
        {"abs", [](double x) { return std::fabs(x); }},
        {"neg", [](double x) { return -x; }},
        {"ceiling", [](double x) { return std::ceil(x); }},
        {"floor", [](double x) { return std::floor(x); }},
        {"round", [](double x) { return std::floor(x + 0.5); }},
        {"truncate", [](double x) { return std::trunc(x); }},
        {"sqrt", [](double x) { return std::sqrt(x); }},
        {"sin", [](double x) { return std::sin(ToRadians(x)); }},
        {"cos", [](double x) { return std::cos(ToRadians(x)); }},
        {"ln", [](double x) { return std::log(x); }},
        {"log", [](double x) { return std::log10(x); }},
        {"cvi", [](double x) { return ToWhole(x); }},
        {"cvr", [](double x) { return x; }}};
    return unaries;
}

const std::map<std::string, Binary>& GetBinaries()
{
    static const std::map<std::string, Binary> binaries = {
        {"add", [](double x, double y) { return x + y; }},
        {"sub", [](double x, double y) { return x - y; }},
        {"mul", [](double x, double y) { return x * y; }},
        {"div", [](double x, double y) { return x / y; }},
        {"idiv", [](double x, double y) { return Divide(x, y); }},
        {"mod", [](double x, double y) { return ToWhole(x) - Divide(x, y) * ToWhole(y); }},
        {"exp", [](double x, double y) { return std::pow(x, y); }},
        {"atan", [](double x, double y) { return ToDegrees(x, y); }},
        {"bitshift", [](double x, double y) { return Shift(x, y); }}};
    return binaries;
}

class PlainMachine
{
public:
    explicit PlainMachine(const std::vector<double>& inputs)
    {
        for (const double input : inputs)
            PushNumber(input);
    }

    void Run(const std::vector<Part>& parts)
    {
        for (std::size_t place = 0; place < parts.size(); ++place) {
            if (!parts[place].isProcedure) {
                RunWord(parts[place].word);
                continue;
            }
            const bool isTrue = Pop(true).number != 0.0;
            const bool hasTwo = parts[place + 1].isProcedure;
            if (isTrue)
                Run(parts[place].procedure);
            else if (hasTwo)
                Run(parts[place + 1].procedure);
            place += hasTwo ? 2 : 1;
        }
    }

    std::vector<double> Take()
    {
        std::vector<double> numbers(stack.size());
        for (std::size_t place = stack.size(); place-- > 0;)
            numbers[place] = PopNumber();
        return numbers;
    }

private:
    void Push(const Value& value)
    {
        stack.push_back(value);
        if (stack.size() > 100 || !std::isfinite(value.number))
            throw Failure();
    }

    void PushNumber(double number) { Push({number, false}); }
    void PushBoolean(bool value) { Push({value ? 1.0 : 0.0, true}); }

    Value Pop()
    {
        if (stack.empty())
            throw Failure();
        const Value value = stack.back();
        stack.pop_back();
        return value;
    }

    Value Pop(bool isBoolean)
    {
        const Value value = Pop();
        if (value.isBoolean != isBoolean)
            throw Failure();
        return value;
    }

    double PopNumber() { return Pop(false).number; }

    std::size_t PopCount()
    {
        const double count = ToWhole(PopNumber());
        if (count < 0.0 || count > static_cast<double>(stack.size()))
            throw Failure();
        return static_cast<std::size_t>(count);
    }

    void RunWord(const std::string& word)
    {
        const auto unary = GetUnaries().find(word);
        const auto binary = GetBinaries().find(word);
        if (OrvSys::Detail::IsDecimal(word)) {
            PushNumber(OrvSys::Detail::ParseDecimal(word));
        } else if (unary != GetUnaries().end()) {
            PushNumber(unary->second(PopNumber()));
        } else if (binary != GetBinaries().end()) {
            const double right = PopNumber();
            PushNumber(binary->second(PopNumber(), right));
        } else if (!RunLogic(word)) {
            RunStack(word);
        }
    }

    bool RunLogic(const std::string& word)
    {
        if (word == "true" || word == "false") {
            PushBoolean(word == "true");
        } else if (word == "not") {
            const Value value = Pop();
            Push({value.isBoolean ? 1.0 - value.number : -1.0 - ToWhole(value.number), value.isBoolean});
        } else if (word == "and" || word == "or" || word == "xor") {
            const Value right = Pop();
            const Value left = Pop(right.isBoolean);
            const std::int32_t x = ToBits(left.number);
            const std::int32_t y = ToBits(right.number);
            Push({static_cast<double>(word == "and" ? x & y : word == "or" ? x | y : x ^ y), left.isBoolean});
        } else if (word == "eq" || word == "ne") {
            const Value right = Pop();
            const Value left = Pop();
            const bool areEqual = left.number == right.number && left.isBoolean == right.isBoolean;
            PushBoolean(areEqual == (word == "eq"));
        } else if (word == "lt" || word == "gt" || word == "le" || word == "ge") {
            const double right = PopNumber();
            const double left = PopNumber();
            const bool isStrict = word[1] == 't';
            PushBoolean((left == right && !isStrict) || (word[0] == 'l' ? left < right : left > right));
        } else {
            return false;
        }
        return true;
    }

    void RunStack(const std::string& word)
    {
        if (word == "pop") {
            Pop();
        } else if (word == "dup" || word == "index") {
            const std::size_t below = word == "dup" ? 0 : PopCount();
            if (below >= stack.size())
                throw Failure();
            Push(Value(stack[stack.size() - 1 - below]));
        } else if (word == "exch") {
            const Value upper = Pop();
            const Value lower = Pop();
            Push(upper);
            Push(lower);
        } else if (word == "copy") {
            const std::size_t count = PopCount();
            const std::size_t begin = stack.size() - count;
            for (std::size_t place = begin; place < begin + count; ++place)
                Push(Value(stack[place]));
        } else if (word == "roll") {
            Roll();
        } else {
            throw Failure();
        }
    }

    /// One step at a time.
    void Roll()
    {
        const auto steps = static_cast<std::int64_t>(ToWhole(PopNumber()));
        const std::size_t count = PopCount();
        if (count == 0)
            return;
        const auto begin = stack.end() - static_cast<std::ptrdiff_t>(count);
        for (std::int64_t step = 0; step < std::abs(steps) % static_cast<std::int64_t>(count); ++step) {
            if (steps > 0)
                std::rotate(begin, stack.end() - 1, stack.end());
            else
                std::rotate(begin, begin + 1, stack.end());
        }
    }

    std::vector<Value> stack;
};

bool IsKnown(const std::string& word)
{
    static const std::vector<std::string> others = {"true", "false", "not",   "and",  "or",   "xor",
                                                    "eq",   "ne",    "lt",    "gt",   "le",   "ge",
                                                    "pop",  "dup",   "index", "exch", "copy", "roll"};
    return OrvSys::Detail::IsDecimal(word) || GetUnaries().count(word) != 0 ||
           GetBinaries().count(word) != 0 || std::find(others.begin(), others.end(), word) != others.end();
}

/// Also of procedures that never run.
void RequireWellFormed(const std::vector<Part>& parts)
{
    for (std::size_t place = 0; place < parts.size(); ++place) {
        if (!parts[place].isProcedure) {
            if (!IsKnown(parts[place].word))
                throw Failure();
            continue;
        }
        RequireWellFormed(parts[place].procedure);
        const bool hasTwo = place + 1 < parts.size() && parts[place + 1].isProcedure;
        if (hasTwo)
            RequireWellFormed(parts[++place].procedure);
        if (++place >= parts.size() || parts[place].isProcedure ||
            parts[place].word != (hasTwo ? "ifelse" : "if"))
            throw Failure();
    }
}

} // namespace

std::optional<std::vector<double>> RunPlainly(std::string_view program, const std::vector<double>& inputs,
                                              std::size_t mostLevels)
{
    try {
        const std::vector<std::string> words = SplitWords(program);
        std::size_t place = 1;
        if (words.empty() || words[0] != "{")
            return std::nullopt;
        const std::vector<Part> parts = ReadProcedure(words, place, mostLevels);
        if (place != words.size())
            return std::nullopt;
        RequireWellFormed(parts);
        PlainMachine machine(inputs);
        machine.Run(parts);
        return machine.Take();
    } catch (const Failure&) {
        return std::nullopt;
    }
}

} // namespace HarrowSupport::Fuzzing
