#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <memory>
#include <vector>

#include <boost/variant.hpp>

#include <orv_color/icc_profile.h>
#include <orv_img/channel_info.h>
#include <orv_sys/export.h>

namespace OrvImg
{

/// Separations, which stand in the channels.
struct DeviceN
{};

struct DeviceGray
{};

struct DeviceRGB
{};

/// ISO 32000-1, 8.6.5.2.
struct CalGray
{
    std::array<double, 3> whitePoint = {0.9505, 1.0, 1.089};
    std::array<double, 3> blackPoint = {0.0, 0.0, 0.0};
    double gamma = 1.0;
};

/// ISO 32000-1, 8.6.5.3.
struct CalRGB
{
    std::array<double, 3> whitePoint = {0.9505, 1.0, 1.089};
    std::array<double, 3> blackPoint = {0.0, 0.0, 0.0};
    std::array<double, 3> gamma = {1.0, 1.0, 1.0};
    std::array<double, 9> matrix = {1, 0, 0, 0, 1, 0, 0, 0, 1};
};

/// ISO 32000-1, 8.6.5.4. The range holds the bounds of a, then those of b.
struct Lab
{
    std::array<double, 3> whitePoint = {0.9505, 1.0, 1.089};
    std::array<double, 3> blackPoint = {0.0, 0.0, 0.0};
    std::array<double, 4> range = {-100, 100, -100, 100};
};

/// The colour space of a picture's samples.
using ColorSpace = boost::variant<DeviceN, DeviceGray, DeviceRGB, CalGray, CalRGB, Lab,
                                  std::shared_ptr<const OrvColor::ICCProfile>>;

/// Exactly the CIE-based spaces: CalGray, CalRGB, Lab and ICC profiles.
ORV_EXPORT bool IsDeviceIndependentColorSpace(const ColorSpace& space);

/// The number of leading channels that carry the colour; what stands behind them are extra channels. 0 for
/// DeviceN, whose channels are not converted, and for a null profile.
ORV_EXPORT std::size_t NumSourceChannelsForColorConversion(const ColorSpace& space);

/// The standard channels of the space, in order, each of type Color with the decode range (0, 1), which is
/// the whole range of the component. Empty for DeviceN.
ORV_EXPORT std::vector<ChannelInfo> GetChannelInfosForColorSpace(const ColorSpace& space);

/// The family, and for the CIE-based spaces what tells two of them apart.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const ColorSpace& space);

} // namespace OrvImg
