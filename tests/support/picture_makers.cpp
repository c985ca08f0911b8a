#include "support/picture_makers.h"

#include <algorithm>
#include <stdexcept>

namespace HarrowSupport::Testing
{

using OrvImg::ChannelInfo;

PicturePointer MakePicture(const OrvDoc::Document& document, const MadePicture& made)
{
    const std::size_t channels = made.table ? 1 : made.channels.size();
    OrvImg::PictureBuffer::Factory factory(made.width, made.height, channels, made.bits);
    const std::size_t row = factory.GetBytesPerRow();
    if (made.bytes.size() != row * made.height)
        throw std::invalid_argument("the rows have " + std::to_string(row * made.height) + " bytes, not " +
                                    std::to_string(made.bytes.size()));
    for (std::size_t y = 0; y < made.height; ++y)
        std::copy_n(made.bytes.data() + y * row, row, reinterpret_cast<char*>(factory.GetRowPtr(y)));
    std::shared_ptr<const OrvImg::PictureBuffer> buffer = factory.GetResult();
    return OrvImg::PictureData::Factory(document, std::make_shared<OrvImg::BufferedPictureSource>(
                                                      buffer, made.space, made.channels, made.table, made.dpi,
                                                      made.dpi, made.clippingPath))
        .Get();
}

MadePicture InSpace(const OrvImg::ColorSpace& space, const std::string& bytes)
{
    MadePicture made;
    made.space = space;
    made.channels = OrvImg::GetChannelInfosForColorSpace(space);
    made.bytes = bytes;
    made.width = bytes.size() / made.channels.size();
    return made;
}

MadePicture OfSeparations(const std::vector<std::string>& names, const std::string& bytes)
{
    MadePicture made;
    made.space = OrvImg::DeviceN();
    for (const std::string& name : names)
        made.channels.push_back(ColorChannel(name));
    made.bytes = bytes;
    made.width = bytes.size() / names.size();
    return made;
}

MadePicture Stencil(char bits, const std::array<double, 2>& decode)
{
    MadePicture made;
    made.width = 8;
    made.bits = 1;
    made.bytes = std::string(1, bits);
    made.space = OrvImg::DeviceN();
    made.channels = {ChannelInfo("None", ChannelInfo::ChannelType::Stencil, decode)};
    return made;
}

PaintedPointer Painted(const OrvDoc::Document& document, const PicturePointer& picture)
{
    return OrvImg::PaintedPicture::Factory(document, picture, false).Get();
}

std::unique_ptr<OrvDoc::Image> ImageOf(const PaintedPointer& picture, double width, double height)
{
    auto image = std::make_unique<OrvDoc::Image>(picture);
    image->SetTransformation({width, 0.0, 0.0, height, 0.0, 0.0});
    return image;
}

} // namespace HarrowSupport::Testing
