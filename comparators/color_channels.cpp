#include "color_channels.h"

#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include <algorithm>

namespace HarrowSupport::Comparators
{

namespace
{

/// The number that extra channels begin with in a mapping.
constexpr std::size_t channelOffset = 4;

} // namespace

std::size_t ResolveMaskChannel(const OrvImg::PictureData& picture, std::size_t index)
{
    const OrvImg::ColorSpace& space = picture.GetPictureSource()->GetColorSpace();
    if (!OrvImg::IsDeviceIndependentColorSpace(space) || index == OrvColor::Unmapped)
        return index;
    if (index < channelOffset)
        return OrvColor::Unmapped;
    return index - channelOffset + OrvImg::NumSourceChannelsForColorConversion(space);
}

std::vector<std::pair<std::size_t, OrvImg::ChannelInfo>>
SelectColorChannels(const OrvImg::PictureSource& source, const ChannelMapping& mapping)
{
    const std::size_t converted = OrvImg::NumSourceChannelsForColorConversion(source.GetColorSpace());
    const auto isNamed = [&](std::size_t position) {
        return std::any_of(mapping.entries.begin(), mapping.entries.end(), [&](const auto& entry) {
            return entry.value.index == position - converted + channelOffset;
        });
    };
    std::vector<std::pair<std::size_t, OrvImg::ChannelInfo>> selected;
    const std::vector<OrvImg::ChannelInfo>& channels = source.GetChannelInfos();
    for (std::size_t position = 0; position < channels.size(); ++position) {
        if (channels[position].GetType() == OrvImg::ChannelInfo::ChannelType::Color &&
            (position < converted || isNamed(position)))
            selected.emplace_back(position, channels[position]);
    }
    return selected;
}

} // namespace HarrowSupport::Comparators
