#include <orv_img/picture_data.h>

#include <stdexcept>
#include <utility>

#include <orv_img/picture_source.h>

namespace OrvImg
{

namespace
{

using Mapping = OrvColor::ColorList<OrvColor::ChannelMappingPolicy>;
using Value = OrvColor::ChannelMappingPolicy::Value;
using Type = ChannelInfo::ChannelType;

constexpr std::size_t ProcessInks = 4;

/// The number of a sample's position in a mapping; Unmapped for a colour channel that is converted.
std::size_t GetNumber(const ColorSpace& space, std::size_t position)
{
    if (!IsDeviceIndependentColorSpace(space))
        return position;
    const std::size_t converted = NumSourceChannelsForColorConversion(space);
    return position < converted ? OrvColor::Unmapped : position - converted + ProcessInks;
}

void AddExtraChannels(Mapping& mapping, const PictureSource& source)
{
    const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
    for (std::size_t position = 0; position < channels.size(); ++position) {
        const ChannelInfo& channel = channels[position];
        const std::size_t number = GetNumber(source.GetColorSpace(), position);
        if (channel.GetType() == Type::Color && number != OrvColor::Unmapped && channel.GetName() != "None")
            mapping.Add(channel.GetName(), Value{number, channel.GetDecode()});
    }
}

class MapChannels : public boost::static_visitor<void>
{
public:
    MapChannels(Mapping& givenMapping, const PictureSource& givenSource)
        : mapping(givenMapping), source(givenSource)
    {}

    void operator()(const DeviceN&) const
    {
        const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
        std::size_t colors = 0;
        for (const ChannelInfo& channel : channels)
            colors += channel.GetType() == Type::Color ? 1 : 0;
        if (colors == 1 && channels.front().GetType() == Type::Color && channels.front().GetName() == "All") {
            mapping.all = true;
            mapping.valueForAll = Value{0, channels.front().GetDecode()};
            return;
        }
        AddExtraChannels(mapping, source);
    }

    void operator()(const DeviceGray&) const
    {
        const std::array<double, 2> decode = GetDecode(0);
        mapping.Add("Black", Value{0, {1.0 - decode[0], 1.0 - decode[1]}});
        AddFrom(1);
    }

    void operator()(const DeviceRGB&) const
    {
        mapping.Add("DeviceRGB Red", Value{0, GetDecode(0)});
        mapping.Add("DeviceRGB Green", Value{1, GetDecode(1)});
        mapping.Add("DeviceRGB Blue", Value{2, GetDecode(2)});
        AddFrom(3);
    }

    template <typename DeviceIndependent>
    void operator()(const DeviceIndependent&) const
    {
        std::size_t number = 0;
        for (const char* const ink : {"Cyan", "Magenta", "Yellow", "Black"})
            mapping.Add(ink, Value{number++, {0.0, 1.0}});
        AddExtraChannels(mapping, source);
    }

private:
    std::array<double, 2> GetDecode(std::size_t position) const
    {
        const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
        return position < channels.size() ? channels[position].GetDecode() : std::array<double, 2>{0.0, 1.0};
    }

    void AddFrom(std::size_t first) const
    {
        const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
        for (std::size_t position = first; position < channels.size(); ++position) {
            if (channels[position].GetType() == Type::Color)
                mapping.Add(channels[position].GetName(), Value{position, channels[position].GetDecode()});
        }
    }

    Mapping& mapping;
    const PictureSource& source;
};

} // namespace

PictureData::PictureData(std::shared_ptr<const PictureSource> givenSource) : source(std::move(givenSource)) {}

PictureData::~PictureData() = default;

std::size_t PictureData::GetWidth() const
{
    return source->GetWidth();
}

std::size_t PictureData::GetHeight() const
{
    return source->GetHeight();
}

std::vector<ChannelInfo> PictureData::GetChannelInfos() const
{
    return source->GetChannelInfos();
}

Mapping PictureData::GetDefaultChannelMapping(bool overprint) const
{
    Mapping mapping;
    boost::apply_visitor(MapChannels(mapping, *source), source->GetColorSpace());
    mapping.overprint = overprint;
    return mapping;
}

Value PictureData::GetDefaultSoftMaskMapping() const
{
    const std::vector<ChannelInfo>& channels = source->GetChannelInfos();
    for (std::size_t position = 0; position < channels.size(); ++position) {
        if (channels[position].GetType() == Type::Alpha)
            return Value{GetNumber(source->GetColorSpace(), position), channels[position].GetDecode()};
    }
    return Value();
}

PictureData::Factory::Factory(const OrvDoc::Document&, std::shared_ptr<const PictureSource> source)
{
    if (!source)
        throw std::invalid_argument("A picture needs a source.");
    data.reset(new PictureData(std::move(source)));
}

PictureData::Factory::~Factory() = default;

PictureData& PictureData::Factory::Change()
{
    if (isFinished)
        throw std::logic_error("The picture is finished.");
    return *data;
}

PictureData::Factory& PictureData::Factory::SetLink(PictureLink newLink)
{
    Change().link = std::move(newLink);
    return *this;
}

PictureData::Factory& PictureData::Factory::SetMatte(std::vector<double> newMatte)
{
    Change().matte = std::move(newMatte);
    return *this;
}

std::shared_ptr<const PictureData> PictureData::Factory::Get()
{
    isFinished = true;
    return data;
}

} // namespace OrvImg
