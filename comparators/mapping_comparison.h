#pragma once

#include "difference_scope.h"

#include <orv_color/color_list.h>

#include <boost/optional.hpp>

#include <cstddef>
#include <utility>
#include <vector>

/// Lists that tell which channel of a picture, or which component of a shading's function, stands for which
/// separation. They are lined up by name, in whatever order they stand; the labels say "Image" for both.
namespace HarrowSupport::Comparators
{

using ChannelMapping = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
using SeparationMapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;

/// A left and a right channel that show the same separation, each with its decode range.
using ChannelPair = std::pair<OrvColor::ChannelMappingPolicy::Value, OrvColor::ChannelMappingPolicy::Value>;

/// The index of a component on the left side and that of the same separation on the right. All bits set means
/// that the side has no such component.
using ComponentPair = std::pair<std::size_t, std::size_t>;

/// Whether two lists map the same names to the same indices, in any order, with decode ranges that agree to
/// within 2 to the power of -17. A right entry may serve several left ones.
bool MappingListsEqual(const ChannelMapping& left, const ChannelMapping& right);
bool MappingListsEqual(const SeparationMapping& left, const SeparationMapping& right);

/// Lines up two mappings and adds what differs to the scope. The result has the mapped pairs, sorted by name.
/// It is absent if the lists have no common form, and then no samples, background or function can be
/// compared.
boost::optional<std::vector<ChannelPair>>
CompareChannelMappings(const ChannelMapping& left, const ChannelMapping& right,
                       DifferenceScope<OrvDoc::ContentObject>& scope);
boost::optional<std::vector<ComponentPair>>
CompareSeparationMappings(const SeparationMapping& left, const SeparationMapping& right,
                          DifferenceScope<OrvDoc::ContentObject>& scope);

} // namespace HarrowSupport::Comparators
