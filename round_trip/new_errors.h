#pragma once

#include <memory>
#include <vector>

namespace OrvSys::Core
{
class Error;
}

namespace HarrowSupport
{

using ErrorList = std::vector<std::shared_ptr<OrvSys::Core::Error>>;

/// Puts the errors in the order of their addresses.
ErrorList Sorted(ErrorList errors);

/// The errors of a list that another one, sorted, does not have, in the order of their addresses. An error is
/// told by its address, not by its text. One that stands in the list more often than before is new as often
/// as it came in addition.
ErrorList NewErrors(const ErrorList& errors, const ErrorList& sortedBefore);

} // namespace HarrowSupport
