#include "image_catalogue/channels.h"

#include <array>
#include <cstdint>
#include <string>

#include <boost/optional.hpp>

#include <orv_img/color_space.h>

#include "image_catalogue/color_spaces.h"

namespace HarrowSupport::GenerateImage
{

namespace
{

constexpr std::array<double, 2> WholeRange = {0.0, 1.0};

struct Ink
{
    std::string name;
    /// Cyan, magenta, yellow and black of the alternate colour.
    boost::optional<std::array<float, 4>> alternate = {};
};

Ink Pan222()
{
    return {"PAN222", {{0.4f, 0.7f, 0.1f, 0.2f}}};
}

std::vector<Ink> GetInks(ColorSpaceKind kind)
{
    switch (kind) {
    case ColorSpaceKind::DeviceN_CMYK:
        return {{"Cyan"}, {"Magenta"}, {"Yellow"}, {"Black"}};
    case ColorSpaceKind::DeviceN_MYC:
        return {{"Magenta"}, {"Yellow"}, {"Cyan"}};
    case ColorSpaceKind::DeviceN_6Component:
        return {{"Cyan"},  {"Foo", {{0.1f, 0.7f, 0.0f, 0.2f}}},    {"Bar", {{0.6f, 0.1f, 0.1f, 0.0f}}},
                {"Black"}, {"PAN111", {{0.8f, 0.2f, 0.6f, 0.1f}}}, Pan222()};
    case ColorSpaceKind::DeviceN_Black:
        return {{"Black"}};
    case ColorSpaceKind::DeviceN_Magenta:
        return {{"Magenta"}};
    case ColorSpaceKind::DeviceN_1Spot:
        return {{"PANTONE 450 M"}};
    case ColorSpaceKind::DeviceN_None:
        return {{"Cyan"}, {"None"}, {"None"}, Pan222()};
    case ColorSpaceKind::DeviceN_All:
        return {{"All"}};
    default:
        return {};
    }
}

OrvImg::ChannelInfo MakeChannel(const Ink& ink)
{
    OrvImg::ChannelInfo channel(ink.name, OrvImg::ChannelInfo::ChannelType::Color, WholeRange);
    if (ink.alternate) {
        OrvColor::Representation representation;
        representation.SetCmyk({ink.alternate->begin(), ink.alternate->end()});
        channel.SetRepresentation(representation);
    }
    return channel;
}

} // namespace

std::vector<OrvImg::ChannelInfo> MakeChannelInfos(ColorSpaceKind kind, bool withAlpha)
{
    std::vector<OrvImg::ChannelInfo> channels;
    if (kind < ColorSpaceKind::DeviceN_CMYK)
        channels = OrvImg::GetChannelInfosForColorSpace(MakeColorSpace(static_cast<std::uint32_t>(kind)));
    else
        for (const Ink& ink : GetInks(kind))
            channels.push_back(MakeChannel(ink));
    if (withAlpha && kind <= ColorSpaceKind::DeviceN_All)
        channels.emplace_back("", OrvImg::ChannelInfo::ChannelType::Alpha, WholeRange);
    return channels;
}

std::size_t ChannelCount(ColorSpaceKind kind, bool withAlpha)
{
    const std::size_t alpha = withAlpha ? 1 : 0;
    switch (kind) {
    case ColorSpaceKind::DeviceGray:
    case ColorSpaceKind::CalGray_Normal:
    case ColorSpaceKind::CalGray_Weird:
    case ColorSpaceKind::ICCBased_Gray:
    case ColorSpaceKind::DeviceN_Black:
    case ColorSpaceKind::DeviceN_Magenta:
    case ColorSpaceKind::DeviceN_1Spot:
    case ColorSpaceKind::DeviceN_All:
        return 1 + alpha;
    case ColorSpaceKind::DeviceRGB:
    case ColorSpaceKind::CalRGB_Normal:
    case ColorSpaceKind::CalRGB_Weird:
    case ColorSpaceKind::ICCBased_RGB:
    case ColorSpaceKind::ICCBased_Lab:
    case ColorSpaceKind::DeviceN_MYC:
        return 3 + alpha;
    case ColorSpaceKind::Lab_Normal:
    case ColorSpaceKind::Lab_Weird:
        return 3;
    case ColorSpaceKind::ICCBased_CMYK:
    case ColorSpaceKind::DeviceN_CMYK:
    case ColorSpaceKind::DeviceN_None:
        return 4 + alpha;
    default:
        return 6 + alpha;
    }
}

} // namespace HarrowSupport::GenerateImage
