#pragma once

#include "mapping_comparison.h"

#include <vector>

namespace OrvPaint
{
class Function;
}

namespace HarrowSupport::Comparators
{

/// Whether two functions are the same in the components that the pairs line up. Domains, bounds, encodings,
/// exponents and ranges count exactly, outputs within the tolerance of colour components. A component that
/// only one side has must be zero there all over. Functions that the document library keeps whole can't be
/// compared component by component: they are equal only if each pair has the same index on both sides and the
/// library says so. No pairs leave only what is common to all components.
bool CompareFunctions(const std::vector<ComponentPair>& pairs, const OrvPaint::Function& left,
                      const OrvPaint::Function& right);

} // namespace HarrowSupport::Comparators
