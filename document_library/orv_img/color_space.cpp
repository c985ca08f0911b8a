#include <orv_img/color_space.h>

#include <cmath>
#include <ostream>
#include <string>

#include "orv_sys/decimal.h"
#include "orv_sys/digest.h"

namespace OrvImg
{

namespace
{

using Profile = std::shared_ptr<const OrvColor::ICCProfile>;

struct IsDeviceIndependent : boost::static_visitor<bool>
{
    bool operator()(const DeviceN&) const { return false; }
    bool operator()(const DeviceGray&) const { return false; }
    bool operator()(const DeviceRGB&) const { return false; }
    template <typename Other>
    bool operator()(const Other&) const
    {
        return true;
    }
};

std::vector<std::string> GetProfileChannels(const Profile& profile)
{
    if (!profile)
        return {};
    const std::string data = profile->GetDataColorSpace();
    if (data == "GRAY")
        return {"Gray"};
    if (data == "RGB ")
        return {"Red", "Green", "Blue"};
    if (data == "Lab ")
        return {"L", "a", "b"};
    if (data == "CMYK")
        return {"Cyan", "Magenta", "Yellow", "Black"};
    std::vector<std::string> names;
    for (std::size_t index = 1; index <= profile->GetComponentCount(); ++index)
        names.push_back("Component " + std::to_string(index));
    return names;
}

struct GetChannelNames : boost::static_visitor<std::vector<std::string>>
{
    std::vector<std::string> operator()(const DeviceN&) const { return {}; }
    std::vector<std::string> operator()(const DeviceGray&) const { return {"Gray"}; }
    std::vector<std::string> operator()(const DeviceRGB&) const { return {"Red", "Green", "Blue"}; }
    std::vector<std::string> operator()(const CalGray&) const { return {"Gray"}; }
    std::vector<std::string> operator()(const CalRGB&) const { return {"Red", "Green", "Blue"}; }
    std::vector<std::string> operator()(const Lab&) const { return {"L", "a", "b"}; }
    std::vector<std::string> operator()(const Profile& profile) const { return GetProfileChannels(profile); }
};

std::string Number(double value)
{
    return std::isfinite(value) ? OrvSys::Detail::FormatDecimal(value) : "no number";
}

class Print : public boost::static_visitor<void>
{
public:
    explicit Print(std::ostream& givenStream) : stream(givenStream) {}

    void operator()(const DeviceN&) const { stream << "DeviceN"; }
    void operator()(const DeviceGray&) const { stream << "DeviceGray"; }
    void operator()(const DeviceRGB&) const { stream << "DeviceRGB"; }

    void operator()(const CalGray& space) const
    {
        stream << "CalGray(";
        Add(space.whitePoint);
        stream << "; ";
        Add(space.blackPoint);
        stream << "; " << Number(space.gamma) << ')';
    }

    void operator()(const CalRGB& space) const
    {
        stream << "CalRGB(";
        Add(space.whitePoint);
        stream << "; ";
        Add(space.blackPoint);
        stream << "; ";
        Add(space.gamma);
        stream << "; ";
        Add(space.matrix);
        stream << ')';
    }

    void operator()(const Lab& space) const
    {
        stream << "Lab(";
        Add(space.whitePoint);
        stream << "; ";
        Add(space.blackPoint);
        stream << "; ";
        Add(space.range);
        stream << ')';
    }

    void operator()(const Profile& profile) const
    {
        stream << "ICCBased(" << (profile ? OrvSys::Detail::DigestText(profile->GetDigest()) : "none") << ')';
    }

private:
    template <std::size_t size>
    void Add(const std::array<double, size>& numbers) const
    {
        const char* separator = "";
        for (const double number : numbers) {
            stream << separator << Number(number);
            separator = ", ";
        }
    }

    std::ostream& stream;
};

} // namespace

bool IsDeviceIndependentColorSpace(const ColorSpace& space)
{
    return boost::apply_visitor(IsDeviceIndependent(), space);
}

std::size_t NumSourceChannelsForColorConversion(const ColorSpace& space)
{
    return boost::apply_visitor(GetChannelNames(), space).size();
}

std::vector<ChannelInfo> GetChannelInfosForColorSpace(const ColorSpace& space)
{
    std::vector<ChannelInfo> channels;
    for (const std::string& name : boost::apply_visitor(GetChannelNames(), space))
        channels.emplace_back(name, ChannelInfo::ChannelType::Color, std::array<double, 2>{0.0, 1.0});
    return channels;
}

std::ostream& operator<<(std::ostream& stream, const ColorSpace& space)
{
    boost::apply_visitor(Print(stream), space);
    return stream;
}

} // namespace OrvImg
