#pragma once

#include <array>
#include <cstdint>
#include <string>

#include <orv_color/representation.h>
#include <orv_sys/export.h>

namespace OrvImg
{

/// One channel of a picture: what it stands for and where its samples lie. A value.
class ORV_EXPORT ChannelInfo
{
public:
    enum class ChannelType : std::uint32_t
    {
        Color = 0,
        Alpha = 1,
        Stencil = 4
    };

    /// A decode range (low, high) takes the lowest sample to low and the highest to high, where 0 and 1 are
    /// the ends of the component's range.
    ChannelInfo(const std::string& name, ChannelType type, const std::array<double, 2>& decode);
    ChannelInfo(const ChannelInfo&);
    ChannelInfo(ChannelInfo&&) noexcept;
    ChannelInfo& operator=(const ChannelInfo&);
    ChannelInfo& operator=(ChannelInfo&&) noexcept;
    ~ChannelInfo();

    ChannelType GetType() const { return type; }
    const std::string& GetName() const { return name; }
    const std::array<double, 2>& GetDecode() const { return decode; }
    void SetDecode(const std::array<double, 2>& value) { decode = value; }

    /// What a separation looks like where its ink is not at hand.
    void SetRepresentation(const OrvColor::Representation& value) { representation = value; }

    // For makers of documents.

    /// Without an alternate colour until one is set.
    const OrvColor::Representation& GetRepresentation() const { return representation; }

private:
    std::string name;
    ChannelType type;
    std::array<double, 2> decode;
    OrvColor::Representation representation;
};

} // namespace OrvImg
