// Order of steps: links; the mappings, which give the pairs of channels; width, height; the colour spaces;
// then the samples, by pairs of positions in a pixel. How these come about depends on the mappings: default
// ones of device-independent pictures name inks, so the channels are paired in their order instead; another
// mapping of such pictures is that of a soft mask, with a single channel. Pairing all pictures by their
// mappings would be simpler and would look for the samples of Cyan in Red.

#include "picture_data_comparison.h"

#include "color_channel_pairs.h"
#include "color_channels.h"
#include "decode_equality.h"
#include "indexing_comparison.h"
#include "picture_color_space_equality.h"

#include <orv_doc/content_object.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>
#include <vantry/uri.h>

#include <boost/optional/optional_io.hpp>

#include <algorithm>
#include <cstddef>
#include <string>

namespace HarrowSupport::Comparators
{

namespace
{

using ObjectScope = DifferenceScope<OrvDoc::ContentObject>;
using ChannelValue = OrvColor::ChannelMappingPolicy::Value;

std::string DisplayTextOf(const OrvImg::PictureLink& link)
{
    return Vantry::GetDisplayPath(boost::network::uri::uri(link.uri));
}

void CompareLinks(const OrvImg::PictureData& left, const OrvImg::PictureData& right, bool loosely,
                  ObjectScope& scope)
{
    const boost::optional<OrvImg::PictureLink>& leftLink = left.GetLink();
    const boost::optional<OrvImg::PictureLink>& rightLink = right.GetLink();
    if (!loosely) {
        if (leftLink != rightLink)
            scope.AddValues("ImageLink", leftLink, rightLink);
        return;
    }
    if (leftLink.has_value() != rightLink.has_value())
        scope.AddValues("ImageLinkPresence", leftLink.has_value(), rightLink.has_value());
    else if (leftLink && leftLink->uri != rightLink->uri)
        scope.AddValues("ImageLinkURI", DisplayTextOf(*leftLink), DisplayTextOf(*rightLink));
}

bool SizesAgree(const OrvImg::PictureData& left, const OrvImg::PictureData& right, ObjectScope& scope)
{
    if (left.GetWidth() != right.GetWidth()) {
        scope.AddValues("ImageWidth", left.GetWidth(), right.GetWidth());
        return false;
    }
    if (left.GetHeight() != right.GetHeight()) {
        scope.AddValues("ImageHeight", left.GetHeight(), right.GetHeight());
        return false;
    }
    return true;
}

bool IsDeviceNOrGray(const OrvImg::ColorSpace& space)
{
    return boost::get<OrvImg::DeviceN>(&space) != nullptr ||
           boost::get<OrvImg::DeviceGray>(&space) != nullptr;
}

bool IsDefault(const ChannelMapping& mapping, const OrvImg::PictureData& picture)
{
    return MappingListsEqual(mapping, picture.GetDefaultChannelMapping(mapping.overprint));
}

/// The channel of a device-independent picture that a mapping of its own names first.
ChannelValue FirstChannel(const OrvImg::PictureData& picture, const ChannelMapping& mapping)
{
    ChannelValue channel;
    if (!mapping.entries.empty())
        channel.index = ResolveMaskChannel(picture, mapping.entries.front().value.index);
    const std::vector<OrvImg::ChannelInfo>& channels = picture.GetPictureSource()->GetChannelInfos();
    if (channel.index < channels.size())
        channel.decode = channels[channel.index].GetDecode();
    return channel;
}

/// The channels whose samples are to be compared, out of the pairs that the mappings give; absent if the
/// pictures differ by them.
boost::optional<std::vector<ChannelPair>>
PairPositions(const OrvImg::PictureData& left, const OrvImg::PictureData& right,
              const ChannelMapping& leftMapping, const ChannelMapping& rightMapping,
              const std::vector<ChannelPair>& mapped, ObjectScope& scope)
{
    const OrvImg::PictureSource& leftSource = *left.GetPictureSource();
    const OrvImg::PictureSource& rightSource = *right.GetPictureSource();
    // Both are, or neither is.
    if (!OrvImg::IsDeviceIndependentColorSpace(leftSource.GetColorSpace()))
        return mapped;
    if (!IsDefault(leftMapping, left) || !IsDefault(rightMapping, right)) {
        const ChannelPair pair(FirstChannel(left, leftMapping), FirstChannel(right, rightMapping));
        return std::vector<ChannelPair>(1, pair);
    }
    const auto namesTheSame = [](const ChannelPair& pair) {
        return NameTheSameChannel(pair.first, pair.second);
    };
    if (!std::all_of(mapped.begin(), mapped.end(), namesTheSame))
        return boost::none;
    return PairColorChannels(leftSource, rightSource, leftMapping, rightMapping, scope);
}

} // namespace

bool ComparePictureData(const OrvImg::PictureData& left, const OrvImg::PictureData& right,
                        const ChannelMapping& leftMapping, const ChannelMapping& rightMapping,
                        const SoftMaskWeighting& weighting, ObjectScope& scope, const Options& options,
                        HeldBuffers& buffers)
{
    CompareLinks(left, right, options.looseImageLinks, scope);
    const auto mapped = CompareChannelMappings(leftMapping, rightMapping, scope);
    if (!mapped || !SizesAgree(left, right, scope))
        return false;

    const OrvImg::ColorSpace& leftSpace = left.GetPictureSource()->GetColorSpace();
    const OrvImg::ColorSpace& rightSpace = right.GetPictureSource()->GetColorSpace();
    const bool leftIndependent = OrvImg::IsDeviceIndependentColorSpace(leftSpace);
    const bool rightIndependent = OrvImg::IsDeviceIndependentColorSpace(rightSpace);
    if (leftIndependent != rightIndependent) {
        scope.AddValues("ImageDeviceIndependentColorSpace", leftIndependent, rightIndependent);
        return false;
    }
    const bool areDeviceNOrGray = IsDeviceNOrGray(leftSpace) && IsDeviceNOrGray(rightSpace);
    if (!areDeviceNOrGray && !CompareColorSpaces(leftSpace, rightSpace))
        scope.AddValues("ImageColorSpace", leftSpace, rightSpace);

    const auto pairs = PairPositions(left, right, leftMapping, rightMapping, *mapped, scope);
    return pairs && CompareIndexing(left.GetPictureSource(), right.GetPictureSource(), *pairs, weighting,
                                    scope, options, buffers);
}

} // namespace HarrowSupport::Comparators
