#pragma once

#include <functional>

namespace HarrowSupport::Comparators
{

/// Calls a function: on this thread as long as its stack has room, and otherwise on a thread of its own, for
/// whose end the caller waits. What the function throws passes through. For recursion as deep as its data:
/// a function that calls itself through this one is bounded by memory alone.
///
/// Throws `std::system_error` if there is no memory for another stack.
void CallWithStackRoom(const std::function<void()>& function);

} // namespace HarrowSupport::Comparators
