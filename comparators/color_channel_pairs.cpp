#include "color_channel_pairs.h"

#include "color_channels.h"

#include <orv_doc/content_object.h>
#include <orv_img/picture_source.h>

#include <cstddef>

namespace HarrowSupport::Comparators
{

namespace
{

using ChannelValue = OrvColor::ChannelMappingPolicy::Value;

} // namespace

boost::optional<std::vector<ChannelPair>> PairColorChannels(const OrvImg::PictureSource& left,
                                                            const OrvImg::PictureSource& right,
                                                            const ChannelMapping& leftMapping,
                                                            const ChannelMapping& rightMapping,
                                                            DifferenceScope<OrvDoc::ContentObject>& scope)
{
    const auto leftChannels = SelectColorChannels(left, leftMapping);
    const auto rightChannels = SelectColorChannels(right, rightMapping);
    if (leftChannels.size() != rightChannels.size()) {
        scope.AddValues("ImageChannelInfoColorChannelCount", leftChannels.size(), rightChannels.size());
        return boost::none;
    }
    const std::size_t leftConverted = OrvImg::NumSourceChannelsForColorConversion(left.GetColorSpace());
    const std::size_t rightConverted = OrvImg::NumSourceChannelsForColorConversion(right.GetColorSpace());
    std::vector<ChannelPair> pairs;
    for (std::size_t i = 0; i < leftChannels.size(); ++i) {
        const auto& [leftPosition, leftChannel] = leftChannels[i];
        const auto& [rightPosition, rightChannel] = rightChannels[i];
        const bool areExtra = leftPosition >= leftConverted && rightPosition >= rightConverted;
        if (areExtra && leftChannel.GetName() != rightChannel.GetName()) {
            scope.AddValues("ImageChannelInfoName", leftChannel.GetName(), rightChannel.GetName());
            return boost::none;
        }
        pairs.emplace_back(ChannelValue{leftPosition, leftChannel.GetDecode()},
                           ChannelValue{rightPosition, rightChannel.GetDecode()});
    }
    return pairs;
}

} // namespace HarrowSupport::Comparators
