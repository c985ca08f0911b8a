#pragma once

#include <array>
#include <ostream>
#include <vector>

#include <orv_paint/function.h>

namespace OrvPaint::Detail
{

/// "[0 1 -2 2]".
void PrintPairs(std::ostream& stream, const std::vector<std::array<double, 2>>& pairs);

/// "Domain [0 1]" and, if the function states one, ", Range [0 1]".
void PrintFrame(std::ostream& stream, const Function& function);

} // namespace OrvPaint::Detail
