#pragma once

#include <string_view>
#include <vector>

#include <boost/optional.hpp>

namespace OrvColor::Detail
{

/// Runs a PostScript calculator (ISO 32000-1, 7.10.5) on `inputs` and gives what is on its stack at the end.
/// Nothing for a program that is malformed, of more than MaxCalculatorBytes, nested too deeply, or that does
/// what PostScript forbids: takes from an empty stack, holds more than 100 numbers, divides by zero. There
/// are no loops, so the time is linear in the length of the program.
boost::optional<std::vector<double>> RunCalculator(std::string_view program,
                                                   const std::vector<double>& inputs);

} // namespace OrvColor::Detail
