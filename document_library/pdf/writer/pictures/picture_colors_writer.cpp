#include "pdf/writer/pictures/picture_colors_writer.h"

#include <algorithm>
#include <cmath>

#include "orv_img/sample_packing.h"
#include "pdf/profile_ranges.h"
#include "pdf/reader/pictures/file_picture.h"
#include "pdf/writer/content/separation_spaces.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvImg::ChannelInfo;
using OrvImg::PictureSource;
using OrvSys::PdfObject;
using Profile = std::shared_ptr<const OrvColor::ICCProfile>;
using Range = std::array<double, 2>;
using Type = ChannelInfo::ChannelType;

constexpr Range UnitRange = {0.0, 1.0};
const std::vector<std::string> ProcessInks = {"Cyan", "Magenta", "Yellow", "Black"};

template <typename Numbers>
PdfObject MakeArray(const Numbers& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers) {
        items.push_back(PdfObject::Real(number));
    }
    return PdfObject::Array(std::move(items));
}

template <typename Numbers>
bool AreFinite(const Numbers& numbers)
{
    return std::all_of(numbers.begin(), numbers.end(), [](double number) { return std::isfinite(number); });
}

struct HasFiniteNumbers : boost::static_visitor<bool>
{
    bool operator()(const OrvImg::CalGray& space) const
    {
        return AreFinite(space.whitePoint) && AreFinite(space.blackPoint) && std::isfinite(space.gamma);
    }
    bool operator()(const OrvImg::CalRGB& space) const
    {
        return AreFinite(space.whitePoint) && AreFinite(space.blackPoint) && AreFinite(space.gamma) &&
               AreFinite(space.matrix);
    }
    bool operator()(const OrvImg::Lab& space) const
    {
        return AreFinite(space.whitePoint) && AreFinite(space.blackPoint) && AreFinite(space.range);
    }
    template <typename Other>
    bool operator()(const Other&) const
    {
        return true;
    }
};

std::vector<ChannelInfo> GetColorChannels(const PictureSource& source)
{
    const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
    return {channels.begin(), channels.begin() + static_cast<std::ptrdiff_t>(CountColorChannels(source))};
}

bool IsNameable(const std::string& name)
{
    return !name.empty() && name.find('\0') == std::string::npos;
}

ColorSpace::Pointer MakeSeparations(const std::vector<ChannelInfo>& channels, SeparationSpaces& separations)
{
    std::vector<std::string> names;
    std::vector<OrvColor::Representation> looks;
    for (const ChannelInfo& channel : channels) {
        names.push_back(channel.GetName());
        looks.push_back(channel.GetRepresentation());
    }
    if (names == ProcessInks) {
        return ColorSpace::DeviceCMYK();
    }
    if (names.size() == 1 && names.front() == "All") {
        return SeparationSpaces::MakeAll();
    }
    if (names.size() == 1 && names.front() == "None") {
        return SeparationSpaces::MakeNone();
    }
    return separations.GetWithLooks(names, looks);
}

/// A profile of Lab data needs its ranges, and an alternate for readers that don't look at profiles.
PdfObject MakeProfiled(const Profile& profile)
{
    const std::size_t count = profile->GetComponentCount();
    PdfObject::Entries entries = {{"N", PdfObject::Integer(static_cast<std::int64_t>(count))}};
    if (profile->GetDataColorSpace() == "Lab ") {
        std::vector<double> range;
        for (const Range& component : GetProfileRanges(*profile)) {
            range.insert(range.end(), component.begin(), component.end());
        }
        entries["Range"] = MakeArray(range);
        entries["Alternate"] =
            ColorSpace::Lab({0.9642, 1.0, 0.8249}, {-128, 127, -128, 127})->GetDefinition();
    } else {
        entries["Alternate"] =
            PdfObject::Name(count == 1 ? "DeviceGray" : (count == 3 ? "DeviceRGB" : "DeviceCMYK"));
    }
    return PdfObject::Array(
        {PdfObject::Name("ICCBased"),
         PdfObject::Stream(PdfObject::Dictionary(std::move(entries)), profile->GetData())});
}

class MakeSpace : public boost::static_visitor<PdfObject>
{
public:
    MakeSpace(const PictureSource& givenSource, SeparationSpaces& givenSeparations)
        : source(givenSource), separations(givenSeparations)
    {}

    PdfObject operator()(const OrvImg::DeviceN&) const
    {
        return MakeSeparations(GetColorChannels(source), separations)->GetDefinition();
    }
    PdfObject operator()(const OrvImg::DeviceGray&) const { return PdfObject::Name("DeviceGray"); }
    PdfObject operator()(const OrvImg::DeviceRGB&) const { return PdfObject::Name("DeviceRGB"); }

    PdfObject operator()(const OrvImg::CalGray& space) const
    {
        return PdfObject::Array(
            {PdfObject::Name("CalGray"), PdfObject::Dictionary({{"WhitePoint", MakeArray(space.whitePoint)},
                                                                {"BlackPoint", MakeArray(space.blackPoint)},
                                                                {"Gamma", PdfObject::Real(space.gamma)}})});
    }

    PdfObject operator()(const OrvImg::CalRGB& space) const
    {
        return PdfObject::Array(
            {PdfObject::Name("CalRGB"), PdfObject::Dictionary({{"WhitePoint", MakeArray(space.whitePoint)},
                                                               {"BlackPoint", MakeArray(space.blackPoint)},
                                                               {"Gamma", MakeArray(space.gamma)},
                                                               {"Matrix", MakeArray(space.matrix)}})});
    }

    PdfObject operator()(const OrvImg::Lab& space) const
    {
        return PdfObject::Array(
            {PdfObject::Name("Lab"), PdfObject::Dictionary({{"WhitePoint", MakeArray(space.whitePoint)},
                                                            {"BlackPoint", MakeArray(space.blackPoint)},
                                                            {"Range", MakeArray(space.range)}})});
    }

    PdfObject operator()(const Profile& profile) const { return MakeProfiled(profile); }

private:
    const PictureSource& source;
    SeparationSpaces& separations;
};

/// The ranges that decode ranges of the model are relative to.
std::vector<Range> GetFullRanges(const PictureSource& source)
{
    if (const auto* const profile = boost::get<Profile>(&source.GetColorSpace())) {
        return GetProfileRanges(**profile);
    }
    if (const auto* const lab = boost::get<OrvImg::Lab>(&source.GetColorSpace())) {
        return {{0.0, 100.0}, {lab->range[0], lab->range[1]}, {lab->range[2], lab->range[3]}};
    }
    return std::vector<Range>(CountColorChannels(source), UnitRange);
}

double Place(double relative, const Range& full)
{
    if (relative == 0.0 || relative == 1.0) {
        return relative == 0.0 ? full[0] : full[1];
    }
    return full[0] + relative * (full[1] - full[0]);
}

} // namespace

std::size_t CountColorChannels(const PictureSource& source)
{
    const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
    if (!boost::get<OrvImg::DeviceN>(&source.GetColorSpace())) {
        return std::min(OrvImg::NumSourceChannelsForColorConversion(source.GetColorSpace()), channels.size());
    }
    const auto isExtra = [](const ChannelInfo& channel) { return channel.GetType() == Type::Alpha; };
    return static_cast<std::size_t>(std::find_if(channels.begin(), channels.end(), isExtra) -
                                    channels.begin());
}

const char* FindColorProblem(const PictureSource& source)
{
    const OrvImg::ColorSpace& space = source.GetColorSpace();
    const std::vector<ChannelInfo>& channels = source.GetChannelInfos();
    const std::size_t count = CountColorChannels(source);
    const Profile* const profile = boost::get<Profile>(&space);
    if (profile && (!*profile || (count != 1 && count != 3 && count != 4))) {
        return "pictures with an ICC profile of other than 1, 3 or 4 components cannot be written";
    }
    const bool isDeviceN = boost::get<OrvImg::DeviceN>(&space) != nullptr;
    if (count == 0 || (!isDeviceN && count != OrvImg::NumSourceChannelsForColorConversion(space))) {
        return "pictures with fewer channels than their colour space cannot be written";
    }
    if (!boost::apply_visitor(HasFiniteNumbers(), space)) {
        return "pictures in a colour space with infinite numbers cannot be written";
    }
    for (std::size_t index = 0; index < channels.size(); ++index) {
        const ChannelInfo& channel = channels[index];
        if (!AreFinite(channel.GetDecode())) {
            return "pictures with infinite decode ranges cannot be written";
        }
        const bool isColor = index < count;
        if ((isColor && channel.GetType() != Type::Color) || channel.GetType() == Type::Stencil) {
            return "pictures with a stencil among their channels cannot be written";
        }
        if (isDeviceN && isColor &&
            (!IsNameable(channel.GetName()) || (count > 1 && channel.GetName() == "All"))) {
            return "pictures of separations that no colour space can name cannot be written";
        }
    }
    if (isDeviceN && count > ColorSpace::MaxColorants) {
        return "pictures of more separations than a colour space can name cannot be written";
    }
    const auto table = source.GetColorTable();
    if (table && (table->GetEntryCount() > 256 || table->GetChannelCount() != count ||
                  source.GetBitsPerChannel() > 8 || channels.size() != count)) {
        return "pictures with a colour table of more than 256 entries, or of other channels than theirs, "
               "cannot be "
               "written";
    }
    if (table && !AreFinite(table->GetDecode())) {
        return "pictures with infinite decode ranges cannot be written";
    }
    return nullptr;
}

PdfObject MakePictureSpace(const PictureSource& source, SeparationSpaces& separations)
{
    const auto* const ofFile = dynamic_cast<const FilePicture*>(&source);
    if (ofFile && ofFile->GetNativeSpace()) {
        return ofFile->GetNativeSpace()->GetDefinition();
    }
    const PdfObject space = boost::apply_visitor(MakeSpace(source, separations), source.GetColorSpace());
    const auto table = source.GetColorTable();
    if (!table) {
        return space;
    }
    const std::vector<unsigned char>& bytes = table->GetData();
    return PdfObject::Array(
        {PdfObject::Name("Indexed"), space,
         PdfObject::Integer(static_cast<std::int64_t>(table->GetEntryCount()) - 1),
         PdfObject::String(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()))});
}

PdfObject MakePictureDecode(const PictureSource& source)
{
    if (const auto table = source.GetColorTable()) {
        const auto highest = static_cast<double>(OrvImg::Detail::HighestSample(source.GetBitsPerChannel()));
        const Range& decode = table->GetDecode();
        return decode == UnitRange ? PdfObject() : MakeRange({decode[0] * highest, decode[1] * highest});
    }
    const std::vector<Range> full = GetFullRanges(source);
    std::vector<double> numbers;
    bool isDefault = true;
    for (std::size_t index = 0; index < full.size(); ++index) {
        const Range& decode = source.GetChannelInfos()[index].GetDecode();
        isDefault = isDefault && decode == UnitRange;
        numbers.push_back(Place(decode[0], full[index]));
        numbers.push_back(Place(decode[1], full[index]));
    }
    return isDefault ? PdfObject() : MakeArray(numbers);
}

std::vector<std::string> ListSeparations(const PictureSource& source)
{
    std::vector<std::string> names;
    if (const auto* const ofFile = dynamic_cast<const FilePicture*>(&source)) {
        for (const ColorSpace* space = ofFile->GetNativeSpace().get(); space;
             space = space->GetBase().get()) {
            const std::vector<std::string>& colorants = space->GetColorantNames();
            names.insert(names.end(), colorants.begin(), colorants.end());
        }
    } else if (boost::get<OrvImg::DeviceN>(&source.GetColorSpace())) {
        for (const ChannelInfo& channel : GetColorChannels(source)) {
            names.push_back(channel.GetName());
        }
        names = names == ProcessInks ? std::vector<std::string>() : names;
    }
    return names;
}

PdfObject MakeRange(const Range& range)
{
    return MakeArray(range);
}

} // namespace OrvPdf
