#include "round_trip/new_errors.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace HarrowSupport
{

ErrorList Sorted(ErrorList errors)
{
    std::sort(errors.begin(), errors.end());
    return errors;
}

ErrorList NewErrors(const ErrorList& errors, const ErrorList& sortedBefore)
{
    const ErrorList after = Sorted(errors);
    ErrorList fresh;
    std::set_difference(after.begin(), after.end(), sortedBefore.begin(), sortedBefore.end(),
                        std::inserter(fresh, fresh.begin()));
    return fresh;
}

} // namespace HarrowSupport
