#include "color_equality.h"

#include "entry_search.h"

namespace HarrowSupport::Comparators
{

bool ColorListsEqual(const OrvColor::ColorList<OrvColor::ColorPolicy>& left,
                     const OrvColor::ColorList<OrvColor::ColorPolicy>& right)
{
    return NamedListsEqual(left, right,
                           [](const auto& one, const auto& other) { return ComponentsMatch(one, other); });
}

} // namespace HarrowSupport::Comparators
