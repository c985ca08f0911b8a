#pragma once

#include <array>
#include <memory>

#include <orv_paint/function.h>

namespace OrvPaint::Detail
{

/// The parameter range that a shading takes over from its function; `present` where there is nothing to take.
std::array<double, 2> GetParameterRangeOf(const std::shared_ptr<const Function>& function,
                                          const std::array<double, 2>& present);

/// Throws std::invalid_argument if there is no function, or one of more than one input.
void CheckParameterFunction(const std::shared_ptr<const Function>& function);

} // namespace OrvPaint::Detail
