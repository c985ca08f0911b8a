#pragma once

#include <harrow_support/generate_image.h>

#include <cstddef>
#include <vector>

#include <orv_img/channel_info.h>

namespace HarrowSupport::GenerateImage
{

/// The channels of a kind, all with the decode range (0, 1), and behind them an alpha channel without a name
/// if asked for. Empty for a value that no kind has, also with an alpha channel.
std::vector<OrvImg::ChannelInfo> MakeChannelInfos(ColorSpaceKind kind, bool withAlpha);

/// How many channels those are, without making them; 6 and the alpha channel for a value that no kind has.
/// The two Lab kinds do not count an alpha channel: no case of the catalogue gives them one.
std::size_t ChannelCount(ColorSpaceKind kind, bool withAlpha);

} // namespace HarrowSupport::GenerateImage
