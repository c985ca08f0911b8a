#pragma once

#include <cstddef>
#include <functional>

namespace HarrowSupport::Testing
{

/// Calls `work` for each number below `count`, several at once: `threads` of them, or as many as the machine
/// has cores if that is zero. A call that throws ends the others of its thread; the last exception leaves
/// this function.
void ForEachAtOnce(std::size_t count, const std::function<void(std::size_t)>& work, unsigned threads = 0);

} // namespace HarrowSupport::Testing
