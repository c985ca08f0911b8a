#include "pdf/reader/pictures/picture_colors.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

#include "orv_img/sample_packing.h"
#include "orv_sys/stream_bytes.h"
#include "pdf/profile_ranges.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvImg::ChannelInfo;
using OrvSys::PdfObject;
using Family = ColorSpace::Family;
using Range = std::array<double, 2>;
using Ranges = std::vector<Range>;
using Type = ChannelInfo::ChannelType;

constexpr Range UnitRange = {0.0, 1.0};

PdfObject GetItem(const ColorSpace& space, std::size_t index)
{
    const PdfObject& definition = space.GetDefinition();
    return definition.IsArray() && index < definition.GetItems().size() ? definition.GetItems()[index]
                                                                        : PdfObject();
}

template <std::size_t size>
void ReadArray(const PdfObject& array, std::array<double, size>& numbers)
{
    if (!array.IsArray() || array.GetItems().size() != size) {
        return;
    }
    for (std::size_t index = 0; index < size; ++index) {
        if (!array.GetItems()[index].IsNumber()) {
            return;
        }
    }
    for (std::size_t index = 0; index < size; ++index) {
        numbers[index] = array.GetItems()[index].GetNumber();
    }
}

OrvImg::CalGray ReadCalGray(const PdfObject& dictionary)
{
    OrvImg::CalGray space;
    ReadArray(dictionary.Find("WhitePoint"), space.whitePoint);
    ReadArray(dictionary.Find("BlackPoint"), space.blackPoint);
    if (dictionary.Find("Gamma").IsNumber()) {
        space.gamma = dictionary.Find("Gamma").GetNumber();
    }
    return space;
}

OrvImg::CalRGB ReadCalRgb(const PdfObject& dictionary)
{
    OrvImg::CalRGB space;
    ReadArray(dictionary.Find("WhitePoint"), space.whitePoint);
    ReadArray(dictionary.Find("BlackPoint"), space.blackPoint);
    ReadArray(dictionary.Find("Gamma"), space.gamma);
    ReadArray(dictionary.Find("Matrix"), space.matrix);
    return space;
}

OrvImg::Lab ReadLab(const PdfObject& dictionary)
{
    OrvImg::Lab space;
    ReadArray(dictionary.Find("WhitePoint"), space.whitePoint);
    ReadArray(dictionary.Find("BlackPoint"), space.blackPoint);
    ReadArray(dictionary.Find("Range"), space.range);
    return space;
}

/// Where a component's range lies for decode ranges, which are relative to it.
Ranges GetFullRanges(const ColorSpace& native, const OrvImg::ColorSpace& space)
{
    const auto* const profile = boost::get<std::shared_ptr<const OrvColor::ICCProfile>>(&space);
    if (profile && *profile) {
        return GetProfileRanges(**profile);
    }
    return native.GetFamily() == Family::Lab ? native.GetRanges()
                                             : Ranges(native.GetComponentCount(), UnitRange);
}

Range MakeRelative(const Range& range, const Range& full)
{
    const double extent = full[1] - full[0];
    if (range == full || !(extent > 0.0)) {
        return UnitRange;
    }
    return {(range[0] - full[0]) / extent, (range[1] - full[0]) / extent};
}

std::vector<ChannelInfo> MakeColorants(const ColorSpace& native)
{
    std::vector<ChannelInfo> channels;
    const std::vector<ColorSpace::Alternate> alternates = native.GetAlternates();
    for (const std::string& name : native.GetColorantNames()) {
        channels.emplace_back(name, Type::Color, UnitRange);
        const auto found =
            std::find_if(alternates.begin(), alternates.end(),
                         [&name](const ColorSpace::Alternate& alternate) { return alternate.name == name; });
        if (found != alternates.end()) {
            channels.back().SetRepresentation(found->representation);
        }
    }
    return channels;
}

OrvImg::ColorSpace MakeProfiled(const ColorSpace& native, std::vector<std::string>& problems)
{
    const PdfObject stream = GetItem(native, 1);
    const std::size_t count = native.GetComponentCount();
    try {
        auto profile = std::make_shared<const OrvColor::ICCProfile>(
            OrvSys::Detail::DecodeSmallStream(stream).value_or(stream.GetRawBytes()));
        if (profile->GetComponentCount() == count) {
            return profile;
        }
        problems.push_back("the ICC profile has " + std::to_string(profile->GetComponentCount()) +
                           " components instead of " + std::to_string(count));
    } catch (const std::invalid_argument& failure) {
        problems.push_back(std::string("the ICC profile cannot be read: ") + failure.what());
    }
    if (count == 1) {
        return OrvImg::DeviceGray();
    }
    return count == 3 ? OrvImg::ColorSpace(OrvImg::DeviceRGB()) : OrvImg::ColorSpace(OrvImg::DeviceN());
}

OrvImg::ColorSpace MakeSpace(const ColorSpace& native, std::vector<std::string>& problems)
{
    switch (native.GetFamily()) {
    case Family::DeviceGray:
        return OrvImg::DeviceGray();
    case Family::DeviceRGB:
        return OrvImg::DeviceRGB();
    case Family::CalGray:
        return ReadCalGray(GetItem(native, 1));
    case Family::CalRGB:
        return ReadCalRgb(GetItem(native, 1));
    case Family::Lab:
        return ReadLab(GetItem(native, 1));
    case Family::ICCBased:
        return MakeProfiled(native, problems);
    case Family::DeviceCMYK:
    case Family::Separation:
    case Family::DeviceN:
        return OrvImg::DeviceN();
    case Family::Indexed:
    case Family::Pattern:
        break;
    }
    throw std::invalid_argument("the picture is in a colour space of patterns");
}

PictureColors MakeDirectColors(const ColorSpace& native, const Ranges& decode,
                               std::vector<std::string>& problems)
{
    PictureColors colors;
    colors.space = MakeSpace(native, problems);
    colors.samples = native.GetComponentCount();
    colors.channels = OrvImg::GetChannelInfosForColorSpace(colors.space);
    if (native.GetColorantNames().empty() && boost::get<OrvImg::DeviceN>(&colors.space)) {
        for (const char* const ink : {"Cyan", "Magenta", "Yellow", "Black"}) {
            colors.channels.emplace_back(ink, Type::Color, UnitRange);
        }
    } else if (!native.GetColorantNames().empty()) {
        colors.channels = MakeColorants(native);
    }
    const Ranges full = GetFullRanges(native, colors.space);
    for (std::size_t index = 0; index < colors.channels.size() && index < decode.size(); ++index) {
        colors.channels[index].SetDecode(MakeRelative(decode[index], full[index]));
    }
    return colors;
}

/// Pairs of the numbers; nothing, with a problem, if there are not as many as wanted.
Ranges ReadDecode(const std::vector<double>& decode, std::size_t count, std::vector<std::string>& problems)
{
    Ranges ranges;
    if (decode.empty()) {
        return ranges;
    }
    if (decode.size() != 2 * count) {
        problems.push_back("Decode has " + std::to_string(decode.size()) + " numbers instead of " +
                           std::to_string(2 * count) + ", and is left out");
        return ranges;
    }
    for (std::size_t index = 0; index < count; ++index) {
        ranges.push_back({decode[2 * index], decode[2 * index + 1]});
    }
    return ranges;
}

std::string ReadTable(const ColorSpace& native, std::size_t size, std::vector<std::string>& problems)
{
    const PdfObject table = GetItem(native, 3);
    std::string bytes =
        table.IsString() ? table.GetText() : OrvSys::Detail::DecodeSmallStream(table).value_or(std::string());
    if (bytes.size() < size) {
        problems.push_back("the colour table has " + std::to_string(bytes.size()) + " bytes instead of " +
                           std::to_string(size) + "; the others count as zero");
    }
    bytes.resize(size);
    return bytes;
}

} // namespace

PictureColors MakePictureColors(const ColorSpace& native, const std::vector<double>& decode, std::size_t bits,
                                std::vector<std::string>& problems)
{
    if (native.GetFamily() != Family::Indexed) {
        Ranges ranges = ReadDecode(decode, native.GetComponentCount(), problems);
        return MakeDirectColors(native, ranges.empty() ? native.GetRanges() : ranges, problems);
    }
    const ColorSpace& base = *native.GetBase();
    PictureColors colors = MakeDirectColors(base, base.GetRanges(), problems);
    const auto entries = static_cast<std::size_t>(GetItem(native, 2).GetNumber()) + 1;
    const std::size_t channels = base.GetComponentCount();
    const std::string table = ReadTable(native, entries * channels, problems);
    const Ranges positions = ReadDecode(decode, 1, problems);
    const auto highest = static_cast<double>(OrvImg::Detail::HighestSample(bits));
    const Range range =
        positions.empty() ? UnitRange : Range{positions[0][0] / highest, positions[0][1] / highest};
    colors.table = std::make_shared<const OrvImg::ColorTable>(
        reinterpret_cast<const unsigned char*>(table.data()), entries, channels, 8, range);
    colors.samples = 1;
    return colors;
}

PictureColors MakeStencilColors(const std::vector<double>& decode, std::vector<std::string>& problems)
{
    const Ranges ranges = ReadDecode(decode, 1, problems);
    PictureColors colors;
    colors.space = OrvImg::DeviceN();
    colors.channels.emplace_back("None", Type::Stencil, ranges.empty() ? UnitRange : ranges.front());
    colors.samples = 1;
    return colors;
}

} // namespace OrvPdf
