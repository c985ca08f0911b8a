#pragma once

#include <functional>
#include <string>

namespace HarrowSupport::Testing
{

/// Runs a function in a copy of this process, so that what it does to its process (rights, limits, mounts)
/// ends with it. Returns the text that it returns, `exception: ` and the text of what it throws, or `ended by
/// signal N`. Expectations that fail in there are not seen: whoever calls looks at the text.
///
/// @throws std::system_error if no process can be made
std::string RunInFork(const std::function<std::string()>& function);

} // namespace HarrowSupport::Testing
