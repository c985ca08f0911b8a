#include "color_equality.h"

#include "entry_search.h"

namespace HarrowSupport::Comparators
{

bool ColorListsEqual(const OrvColor::ColorList<OrvColor::ColorPolicy>& left,
                     const OrvColor::ColorList<OrvColor::ColorPolicy>& right)
{
    if (left.all != right.all)
        return false;
    if (left.all && !ComponentsMatch(left.valueForAll, right.valueForAll))
        return false;
    if (left.overprint != right.overprint)
        return false;
    if (left.all)
        return true;
    return EachHasAPartner(left.entries, right.entries, [](const auto& one, const auto& other) {
        return one.name == other.name && ComponentsMatch(one.value, other.value);
    });
}

} // namespace HarrowSupport::Comparators
