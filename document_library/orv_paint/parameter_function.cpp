#include "orv_paint/parameter_function.h"

#include <stdexcept>
#include <string>

namespace OrvPaint::Detail
{

std::array<double, 2> GetParameterRangeOf(const std::shared_ptr<const Function>& function,
                                          const std::array<double, 2>& present)
{
    return function && !function->GetDomain().empty() ? function->GetDomain().front() : present;
}

void CheckParameterFunction(const std::shared_ptr<const Function>& function)
{
    if (!function)
        throw std::invalid_argument("An axial or radial shading needs a function.");
    const std::size_t inputs = function->GetDomain().size();
    if (inputs != 1)
        throw std::invalid_argument("The function of an axial or radial shading has " +
                                    std::to_string(inputs) + " inputs instead of one.");
}

} // namespace OrvPaint::Detail
