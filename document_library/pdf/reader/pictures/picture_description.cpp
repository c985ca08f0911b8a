#include "pdf/reader/pictures/picture_description.h"

#include <stdexcept>
#include <utility>

#include "pdf/pictures/jpx_decoder.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/pictures/picture_colors.h"

namespace OrvPdf
{

namespace
{

using OrvColor::ColorSpace;
using OrvImg::ChannelInfo;
using OrvImg::MaskKind;
using OrvSys::PdfObject;
using Type = OrvImg::PictureStream::Type;
using Problems = std::vector<std::string>;

/// One filter may stand in an array or not.
PdfObject GetFilters(const PdfObject& dictionary)
{
    PdfObject::Items parts;
    for (const char* const key : {"Filter", "DecodeParms"}) {
        const PdfObject value = dictionary.Find(key);
        const bool isOne = value.IsArray() && value.GetItems().size() == 1;
        parts.push_back(isOne ? value.GetItems().front() : value);
    }
    return PdfObject::Array(std::move(parts));
}

/// Decoded, a sample of fewer bits than its container has keeps its number: the decode range makes up for it.
double GetHighEnd(std::size_t precision, std::size_t bits)
{
    const auto highest = [](std::size_t depth) {
        return static_cast<double>((std::uint64_t{1} << depth) - 1);
    };
    return precision >= bits ? 1.0 : highest(bits) / highest(precision);
}

ColorSpace::Pointer GetJpxSpace(const JpxHeader& header)
{
    switch (header.space) {
    case JpxHeader::Space::Gray:
        return ColorSpace::DeviceGray();
    case JpxHeader::Space::Rgb:
        return ColorSpace::DeviceRGB();
    case JpxHeader::Space::Cmyk:
        return ColorSpace::DeviceCMYK();
    case JpxHeader::Space::Lab:
        return ColorSpace::Lab({0.9642, 1.0, 0.8249}, {-128, 127, -128, 127});
    case JpxHeader::Space::Profile:
        if (header.profile && header.profile->GetComponentCount() != 2) {
            return ColorSpace::ICCBased(header.profile);
        }
        break;
    case JpxHeader::Space::None:
        break;
    }
    const std::size_t colors = header.precisions.size() - header.alphaChannels.size();
    if (colors == 4) {
        return ColorSpace::DeviceCMYK();
    }
    return colors == 3 ? ColorSpace::DeviceRGB() : ColorSpace::DeviceGray();
}

/// What the file of JPEG 2000 data says itself (ISO 32000-1, 7.4.9).
void DescribeJpx(const JpxHeader& header, const PictureEntries& entries, const ColorSpace::Pointer& space,
                 PictureDescription& about, Problems& problems)
{
    if (!header.isValid) {
        throw std::invalid_argument("its JPEG 2000 data has no header that can be read");
    }
    std::size_t deepest = 8;
    for (const std::size_t precision : header.precisions) {
        deepest = precision > 8 ? 16 : deepest;
    }
    about.native = space ? space : GetJpxSpace(header);
    PictureColors colors = MakePictureColors(*about.native, {}, deepest, problems);
    if (!space) {
        about.native = nullptr;
    }
    if (colors.samples > header.precisions.size()) {
        throw std::invalid_argument("its JPEG 2000 data has fewer channels than its colour space");
    }
    if (!colors.table) {
        for (std::size_t index = 0; index < colors.channels.size(); ++index) {
            const double high = GetHighEnd(header.precisions[index], deepest);
            const std::array<double, 2> range = colors.channels[index].GetDecode();
            colors.channels[index].SetDecode({range[0], range[0] + (range[1] - range[0]) * high});
        }
    }
    if (entries.softMaskInData != 0 && !header.alphaChannels.empty()) {
        const double high = GetHighEnd(header.precisions.back(), deepest);
        colors.channels.emplace_back("", ChannelInfo::ChannelType::Alpha, std::array<double, 2>{0.0, high});
        ++colors.samples;
        about.mask.kind = MaskKind::SoftMask;
        about.mask.isOwn = true;
    } else if (entries.softMaskInData != 0) {
        problems.emplace_back("SMaskInData asks for an opacity that the JPEG 2000 data does not have");
    }
    about.shape = {entries.width, entries.height, colors.samples, deepest};
    about.space = std::move(colors.space);
    about.channels = std::move(colors.channels);
    about.table = std::move(colors.table);
}

std::size_t GetDepth(const PictureEntries& entries, Type type)
{
    if (entries.isStencil || type == Type::Fax || type == Type::Jbig2) {
        return 1;
    }
    if (type == Type::Dct) {
        return 8;
    }
    if (entries.bits == 0) {
        throw std::invalid_argument("the picture has no BitsPerComponent");
    }
    for (const std::size_t depth : {1, 2, 4, 8, 16}) {
        if (entries.bits == depth) {
            return depth;
        }
    }
    throw std::invalid_argument("the picture has " + std::to_string(entries.bits) +
                                " bits a component instead of 1, 2, 4, 8 or 16");
}

void DescribePlain(const PictureEntries& entries, const ColorSpace::Pointer& space, PictureDescription& about,
                   Problems& problems)
{
    const std::size_t bits = GetDepth(entries, about.type);
    if (!entries.isStencil && !space) {
        throw std::invalid_argument("the picture has no colour space");
    }
    PictureColors colors = entries.isStencil ? MakeStencilColors(entries.decode, problems)
                                             : MakePictureColors(*space, entries.decode, bits, problems);
    about.native = entries.isStencil ? nullptr : space;
    about.shape = {entries.width, entries.height, colors.samples, bits};
    about.space = std::move(colors.space);
    about.channels = std::move(colors.channels);
    about.table = std::move(colors.table);
}

} // namespace

PictureDescription DescribePicture(const SourceFile& file, const PdfObject& dictionary,
                                   const PictureEntries& entries, const EncodedStream& encoded,
                                   const ColorSpace::Pointer& space, Problems& problems)
{
    if (!encoded.raw) {
        throw std::invalid_argument(encoded.problem);
    }
    PictureDescription about;
    about.dpi = entries.dpi;
    about.intent = entries.intent;
    about.filters = GetFilters(dictionary);
    about.type = GetStreamType(encoded.stages);
    const std::string undecodable = FindUndecodable(file, encoded);
    if (!undecodable.empty()) {
        about.isUndecodable = true;
        problems.push_back(undecodable);
    }
    if (about.type == Type::Jpx && undecodable.empty()) {
        const DecodedStream data = UndoByteFilters(file, encoded);
        DescribeJpx(ReadJpxHeader(data.bytes.View()), entries, space, about, problems);
    } else {
        DescribePlain(entries, space, about, problems);
    }
    return about;
}

} // namespace OrvPdf
