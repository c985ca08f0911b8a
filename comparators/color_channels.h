#pragma once

#include "mapping_comparison.h"

#include <orv_img/channel_info.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace OrvImg
{
class PictureData;
class PictureSource;
} // namespace OrvImg

/// Where the channels that a mapping names lie in a pixel. They are the same numbers but for pictures in a
/// device-independent space, whose colour channels are converted to inks: there the numbers below 4 stand for
/// the inks, and those from 4 upwards for the channels behind the colour.
namespace HarrowSupport::Comparators
{

/// The position in a pixel of the channel with that number in a mapping; all bits set for an ink that the
/// colour is converted to, which no sample holds.
std::size_t ResolveMaskChannel(const OrvImg::PictureData& picture, std::size_t index);

/// The colour channels of a picture in a device-independent space, with their positions, as far as they are
/// painted: those that are converted, and of the others those that the mapping names.
std::vector<std::pair<std::size_t, OrvImg::ChannelInfo>>
SelectColorChannels(const OrvImg::PictureSource& source, const ChannelMapping& mapping);

} // namespace HarrowSupport::Comparators
