#pragma once

#include <orv_paint/function.h>
#include <orv_paint/shading_paint.h>

#include <cstddef>
#include <memory>
#include <random>
#include <string>

namespace HarrowSupport::Testing
{

/// A function of one input, or of two, with that many outputs, of any type: among them stitched ones, arrays
/// of functions, and ones that are kept whole.
std::shared_ptr<const OrvPaint::Function> RandomFunction(std::mt19937& random, std::size_t inputs,
                                                         std::size_t outputs);

/// A shading of any type, in a colour space or made for a list of separations: among the lists are ones whose
/// indices have gaps or occur twice.
std::shared_ptr<const OrvPaint::ShadingPaint> RandomShading(std::mt19937& random);

/// All that a shading is, with every digit of its numbers, for a comparison without tolerance. The colour
/// space is left out, as the one that a list is written in is read back.
std::string DescribeShading(const OrvPaint::ShadingPaint& shading);

} // namespace HarrowSupport::Testing
