#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include <boost/optional.hpp>

namespace OrvColor::Detail
{

// clang-format off
enum class Operator
{
    Abs, Add, And, Atan, Bitshift, Ceiling, Copy, Cos, Cvi, Cvr,
    Div, Dup, Eq, Exch, Exp, False, Floor, Ge, Gt, Idiv,
    Index, Le, Ln, Log, Lt, Mod, Mul, Ne, Neg, Not,
    Or, Pop, Roll, Round, Sin, Sqrt, Sub, True, Truncate, Xor,
    Push,        // The instruction's number.
    PushInteger,
    JumpIfFalse, // Over so many instructions as its number says.
    Jump
};
// clang-format on

struct Instruction
{
    Operator operation;
    double number = 0.0;
};

/// Longest program; real ones have a few hundred bytes.
constexpr std::size_t MaxCalculatorBytes = std::size_t{256} << 10;

/// The program without its procedures: `if` and `ifelse` become jumps forward. Nothing for a malformed one.
boost::optional<std::vector<Instruction>> CompileCalculator(std::string_view program);

} // namespace OrvColor::Detail
