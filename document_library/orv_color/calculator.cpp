#include "orv_color/calculator.h"

#include "orv_color/calculator_program.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace OrvColor::Detail
{

namespace
{

constexpr std::size_t MaxStack = 100; // ISO 32000-1, Annex C.
constexpr double Degree = 3.14159265358979323846 / 180.0;

struct Value
{
    enum class Kind
    {
        Real,
        Integer,
        Boolean
    };

    double number = 0.0;
    Kind kind = Kind::Real;
};

struct Failure
{};

class Machine
{
public:
    explicit Machine(const std::vector<double>& inputs)
    {
        for (const double input : inputs)
            Push(input);
    }

    void Run(const std::vector<Instruction>& code)
    {
        for (std::size_t place = 0; place < code.size(); ++place) {
            const Instruction& instruction = code[place];
            if (instruction.operation == Operator::Jump)
                place += static_cast<std::size_t>(instruction.number);
            else if (instruction.operation == Operator::JumpIfFalse)
                place += PopBoolean() ? 0 : static_cast<std::size_t>(instruction.number);
            else if (!RunStack(instruction) && !RunLogic(instruction.operation) &&
                     !RunInteger(instruction.operation))
                RunReal(instruction.operation);
        }
    }

    std::vector<double> GetNumbers() const
    {
        std::vector<double> numbers;
        for (const Value& value : stack) {
            if (value.kind == Value::Kind::Boolean)
                throw Failure();
            numbers.push_back(value.number);
        }
        return numbers;
    }

private:
    void Push(double number, Value::Kind kind = Value::Kind::Real)
    {
        if (stack.size() >= MaxStack || !std::isfinite(number))
            throw Failure();
        stack.push_back({number, kind});
    }

    void PushBoolean(bool value) { Push(value ? 1.0 : 0.0, Value::Kind::Boolean); }

    Value Pop()
    {
        if (stack.empty())
            throw Failure();
        const Value value = stack.back();
        stack.pop_back();
        return value;
    }

    Value PopNumber()
    {
        const Value value = Pop();
        if (value.kind == Value::Kind::Boolean)
            throw Failure();
        return value;
    }

    std::int32_t PopInteger() { return ToInteger(PopNumber().number); }

    bool PopBoolean()
    {
        const Value value = Pop();
        if (value.kind != Value::Kind::Boolean)
            throw Failure();
        return value.number != 0.0;
    }

    // Depth of an operand that counts elements of the stack.
    std::size_t PopCount()
    {
        const std::int32_t count = PopInteger();
        if (count < 0 || static_cast<std::size_t>(count) > stack.size())
            throw Failure();
        return static_cast<std::size_t>(count);
    }

    static std::int32_t ToInteger(double number)
    {
        const double whole = std::trunc(number);
        if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
              whole <= std::numeric_limits<std::int32_t>::max()))
            throw Failure();
        return static_cast<std::int32_t>(whole);
    }

    void Copy()
    {
        const std::size_t count = PopCount();
        const std::size_t start = stack.size() - count;
        for (std::size_t index = 0; index < count; ++index) {
            const Value value = stack[start + index];
            Push(value.number, value.kind);
        }
    }

    void Index()
    {
        const std::size_t below = PopCount();
        Duplicate(below);
    }

    void Duplicate(std::size_t below)
    {
        if (below >= stack.size())
            throw Failure();
        const Value value = stack[stack.size() - 1 - below];
        Push(value.number, value.kind);
    }

    void Roll()
    {
        const std::int64_t shift = PopInteger();
        const auto count = static_cast<std::int64_t>(PopCount());
        if (count == 0)
            return;
        const std::int64_t upwards = ((shift % count) + count) % count;
        std::rotate(stack.end() - count, stack.end() - upwards, stack.end());
    }

    bool RunStack(const Instruction& instruction)
    {
        switch (instruction.operation) {
        case Operator::Push:
            Push(instruction.number);
            return true;
        case Operator::PushInteger:
            Push(instruction.number, Value::Kind::Integer);
            return true;
        case Operator::Pop:
            Pop();
            return true;
        case Operator::Dup:
            Duplicate(0);
            return true;
        case Operator::Exch:
            if (stack.size() < 2)
                throw Failure();
            std::swap(stack[stack.size() - 1], stack[stack.size() - 2]);
            return true;
        case Operator::Copy:
            Copy();
            return true;
        case Operator::Index:
            Index();
            return true;
        case Operator::Roll:
            Roll();
            return true;
        default:
            return false;
        }
    }

    void CompareForEquality(Operator operation)
    {
        const Value right = Pop();
        const Value left = Pop();
        const bool areBooleans = left.kind == Value::Kind::Boolean;
        const bool areEqual =
            areBooleans == (right.kind == Value::Kind::Boolean) && left.number == right.number;
        PushBoolean(areEqual == (operation == Operator::Eq));
    }

    void CompareByOrder(Operator operation)
    {
        const double right = PopNumber().number;
        const double left = PopNumber().number;
        switch (operation) {
        case Operator::Ge:
            return PushBoolean(left >= right);
        case Operator::Gt:
            return PushBoolean(left > right);
        case Operator::Le:
            return PushBoolean(left <= right);
        default:
            return PushBoolean(left < right);
        }
    }

    void CombineBits(Operator operation)
    {
        const Value right = Pop();
        const Value left = Pop();
        if ((left.kind == Value::Kind::Boolean) != (right.kind == Value::Kind::Boolean))
            throw Failure();
        const std::int32_t a = ToInteger(left.number);
        const std::int32_t b = ToInteger(right.number);
        const std::int32_t result = operation == Operator::And  ? (a & b)
                                    : operation == Operator::Or ? (a | b)
                                                                : (a ^ b);
        Push(result, left.kind == Value::Kind::Boolean ? Value::Kind::Boolean : Value::Kind::Integer);
    }

    bool RunLogic(Operator operation)
    {
        switch (operation) {
        case Operator::True:
        case Operator::False:
            PushBoolean(operation == Operator::True);
            return true;
        case Operator::Eq:
        case Operator::Ne:
            CompareForEquality(operation);
            return true;
        case Operator::Ge:
        case Operator::Gt:
        case Operator::Le:
        case Operator::Lt:
            CompareByOrder(operation);
            return true;
        case Operator::And:
        case Operator::Or:
        case Operator::Xor:
            CombineBits(operation);
            return true;
        case Operator::Not: {
            const Value value = Pop();
            if (value.kind == Value::Kind::Boolean)
                PushBoolean(value.number == 0.0);
            else
                Push(~ToInteger(value.number), Value::Kind::Integer);
            return true;
        }
        default:
            return false;
        }
    }

    bool RunInteger(Operator operation)
    {
        switch (operation) {
        case Operator::Idiv:
        case Operator::Mod: {
            const std::int64_t right = PopInteger();
            const std::int64_t left = PopInteger();
            if (right == 0)
                throw Failure();
            const std::int64_t result = operation == Operator::Idiv ? left / right : left % right;
            Push(static_cast<double>(result), Value::Kind::Integer);
            return true;
        }
        case Operator::Bitshift: {
            const std::int32_t shift = PopInteger();
            const auto bits = static_cast<std::uint32_t>(PopInteger());
            std::uint32_t shifted = 0;
            if (shift >= 0 && shift < 32)
                shifted = bits << shift;
            else if (shift < 0 && shift > -32)
                shifted = bits >> -shift;
            Push(static_cast<std::int32_t>(shifted), Value::Kind::Integer);
            return true;
        }
        case Operator::Cvi:
            Push(PopInteger(), Value::Kind::Integer);
            return true;
        default:
            return false;
        }
    }

    void RunReal(Operator operation)
    {
        const double number = PopNumber().number;
        switch (operation) {
        case Operator::Abs:
            return Push(std::fabs(number));
        case Operator::Ceiling:
            return Push(std::ceil(number));
        case Operator::Cos:
            return Push(std::cos(number * Degree));
        case Operator::Cvr:
            return Push(number);
        case Operator::Floor:
            return Push(std::floor(number));
        case Operator::Ln:
            return Push(std::log(number));
        case Operator::Log:
            return Push(std::log10(number));
        case Operator::Neg:
            return Push(-number);
        case Operator::Round:
            return Push(std::floor(number + 0.5));
        case Operator::Sin:
            return Push(std::sin(number * Degree));
        case Operator::Sqrt:
            return Push(std::sqrt(number));
        case Operator::Truncate:
            return Push(std::trunc(number));
        default:
            return RunBinary(operation, PopNumber().number, number);
        }
    }

    void RunBinary(Operator operation, double left, double right)
    {
        switch (operation) {
        case Operator::Add:
            return Push(left + right);
        case Operator::Sub:
            return Push(left - right);
        case Operator::Mul:
            return Push(left * right);
        case Operator::Div:
            return Push(left / right);
        case Operator::Exp:
            return Push(std::pow(left, right));
        case Operator::Atan: {
            const double angle = std::atan2(left, right) / Degree;
            return Push(angle < 0.0 ? angle + 360.0 : angle);
        }
        default:
            throw Failure();
        }
    }

    std::vector<Value> stack;
};

} // namespace

boost::optional<std::vector<double>> RunCalculator(std::string_view program,
                                                   const std::vector<double>& inputs)
{
    const auto code = CompileCalculator(program);
    if (!code)
        return boost::none;
    try {
        Machine machine(inputs);
        machine.Run(*code);
        return machine.GetNumbers();
    } catch (const Failure&) {
        return boost::none;
    }
}

} // namespace OrvColor::Detail
