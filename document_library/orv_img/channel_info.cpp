#include <orv_img/channel_info.h>

namespace OrvImg
{

ChannelInfo::ChannelInfo(const std::string& givenName, ChannelType givenType,
                         const std::array<double, 2>& givenDecode)
    : name(givenName), type(givenType), decode(givenDecode)
{}

ChannelInfo::ChannelInfo(const ChannelInfo&) = default;
ChannelInfo::ChannelInfo(ChannelInfo&&) noexcept = default;
ChannelInfo& ChannelInfo::operator=(const ChannelInfo&) = default;
ChannelInfo& ChannelInfo::operator=(ChannelInfo&&) noexcept = default;
ChannelInfo::~ChannelInfo() = default;

} // namespace OrvImg
