#include "pdf/writer/pictures/picture_problems.h"

#include <cmath>

#include <orv_img/painted_picture.h>
#include <orv_img/picture_data.h>
#include <orv_img/picture_source.h>

#include "pdf/reader/pictures/file_picture.h"
#include "pdf/writer/pictures/picture_colors_writer.h"

namespace OrvPdf
{

namespace
{

using OrvImg::ChannelInfo;
using OrvImg::MaskKind;
using OrvImg::PaintedPicture;
using OrvImg::PictureData;
using OrvImg::PictureSource;

bool IsNameOfSeparation(const std::string& name)
{
    return !name.empty() && name != "All" && name != "None" && name.find('\0') == std::string::npos;
}

const char* FindSoftMaskProblem(const PaintedPicture& picture)
{
    const PictureData& mask = *picture.GetMaskData(false);
    const auto& mapping = picture.GetSoftMaskMapping(false);
    if (!std::isfinite(mapping.decode[0]) || !std::isfinite(mapping.decode[1])) {
        return "soft masks with infinite decode ranges cannot be written";
    }
    if (picture.GetMaskData(false) == picture.GetPictureData(false)) {
        return mapping == mask.GetDefaultSoftMaskMapping() && mapping.index != OrvColor::Unmapped
                   ? nullptr
                   : "pictures that are their own mask by another channel than their opacity cannot be "
                     "written";
    }
    const PictureSource& source = *mask.GetPictureSource();
    const bool isPlain = mapping.index < source.GetChannelInfos().size() && !source.GetColorTable() &&
                         !OrvImg::IsDeviceIndependentColorSpace(source.GetColorSpace());
    return isPlain ? nullptr : "soft masks in device-independent or indexed pictures cannot be written";
}

} // namespace

bool HasDefaultMapping(const PaintedPicture& picture)
{
    const PaintedPicture::ChannelMapping& mapping = picture.GetChannelMapping(false);
    return mapping == picture.GetPictureData(false)->GetDefaultChannelMapping(mapping.overprint);
}

boost::optional<std::vector<ChannelInfo>> NameByMapping(const PaintedPicture& picture)
{
    const PictureSource& source = *picture.GetPictureData(false)->GetPictureSource();
    const PaintedPicture::ChannelMapping& mapping = picture.GetChannelMapping(false);
    const bool isOfInks = boost::get<OrvImg::DeviceN>(&source.GetColorSpace()) ||
                          boost::get<OrvImg::DeviceGray>(&source.GetColorSpace());
    if (!isOfInks || mapping.all || source.GetColorTable()) {
        return boost::none;
    }
    std::vector<ChannelInfo> channels = source.GetChannelInfos();
    const std::size_t count = CountColorChannels(source);
    for (std::size_t index = 0; index < count; ++index) {
        channels[index] = ChannelInfo("None", ChannelInfo::ChannelType::Color, {0.0, 1.0});
    }
    for (const auto& entry : mapping.entries) {
        const std::size_t index = entry.value.index;
        const bool isFree = index < count && channels[index].GetName() == "None";
        if (!isFree || !IsNameOfSeparation(entry.name) || !std::isfinite(entry.value.decode[0]) ||
            !std::isfinite(entry.value.decode[1])) {
            return boost::none;
        }
        channels[index] = ChannelInfo(entry.name, ChannelInfo::ChannelType::Color, entry.value.decode);
    }
    return channels;
}

const char* FindStencilProblem(const PictureData& data)
{
    const PictureSource& source = *data.GetPictureSource();
    if (source.GetBitsPerChannel() != 1 || source.GetChannelInfos().size() != 1 || source.GetColorTable()) {
        return "stencils of more than one bit or channel cannot be written";
    }
    const std::array<double, 2>& decode = source.GetChannelInfos().front().GetDecode();
    const bool isPlain =
        decode == std::array<double, 2>{0.0, 1.0} || decode == std::array<double, 2>{1.0, 0.0};
    return isPlain ? nullptr
                   : "stencils with a decode range other than from 0 to 1 or back cannot be written";
}

const char* FindPictureProblem(const PaintedPicture& picture)
{
    const PictureSource& source = *picture.GetPictureData(false)->GetPictureSource();
    const bool hasDefaultMapping = HasDefaultMapping(picture);
    if (!hasDefaultMapping && !NameByMapping(picture)) {
        return "pictures that show separations that no colour space can say cannot be written";
    }
    if (source.GetClippingPath()) {
        return "pictures with a clipping path of their own cannot be written";
    }
    if (hasDefaultMapping && !dynamic_cast<const FilePicture*>(&source)) {
        if (const char* const problem = FindColorProblem(source)) {
            return problem;
        }
    }
    switch (picture.GetMaskKind(false)) {
    case MaskKind::SoftMask:
        return FindSoftMaskProblem(picture);
    case MaskKind::StencilMask:
        return FindStencilProblem(*picture.GetMaskData(false));
    case MaskKind::ColorKey:
        return source.GetChannelInfos().empty() ? "pictures without a channel cannot be written" : nullptr;
    case MaskKind::None:
        return nullptr;
    }
    return "masks of unknown kinds cannot be written";
}

bool IsAsInFile(const PaintedPicture& picture)
{
    const auto& data = picture.GetPictureData(false);
    const auto* const source = dynamic_cast<const FilePicture*>(data->GetPictureSource().get());
    if (!source || !HasDefaultMapping(picture)) {
        return false;
    }
    const FileMask& mask = source->GetMask();
    const MaskKind kind = picture.GetMaskKind(false);
    if (kind != mask.kind || picture.GetColorKey(false) != mask.colorKey) {
        return false;
    }
    if (kind != MaskKind::SoftMask && kind != MaskKind::StencilMask) {
        return true;
    }
    const bool isSameData = picture.GetMaskData(false) == (mask.isOwn ? data : mask.data);
    const auto& mapping = mask.isOwn ? data->GetDefaultSoftMaskMapping() : mask.softMaskMapping;
    return isSameData && (kind == MaskKind::StencilMask || picture.GetSoftMaskMapping(false) == mapping);
}

} // namespace OrvPdf
