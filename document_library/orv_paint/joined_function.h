#pragma once

#include <memory>
#include <vector>

#include <orv_paint/function.h>

namespace OrvPaint::Detail
{

/// One function whose outputs are those of the given ones, in order. Null if there is none that gives exactly
/// the same numbers: exponential functions must have their exponent, domain and statement of a range in
/// common, stitching functions their domain, bounds, encoding and statement of a range, and parts that can be
/// joined. A single function is its own. None may be null.
std::shared_ptr<const Function> JoinFunctions(const std::vector<std::shared_ptr<const Function>>& functions);

} // namespace OrvPaint::Detail
