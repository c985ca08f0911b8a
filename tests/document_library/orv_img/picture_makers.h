#pragma once

#include <memory>
#include <utility>
#include <vector>

#include <orv_doc/document.h>
#include <orv_img/buffered_picture_source.h>
#include <orv_img/picture_data.h>

namespace OrvImg
{

/// A buffer of one pixel.
inline std::shared_ptr<const PictureBuffer> OnePixel(std::size_t channels = 1)
{
    return PictureBuffer::Factory(1, 1, channels, 8).GetResult();
}

inline std::shared_ptr<const PictureSource> MakeSource(const ColorSpace& space,
                                                       std::vector<ChannelInfo> channels)
{
    const std::size_t count = channels.size();
    return std::make_shared<BufferedPictureSource>(OnePixel(count), space, std::move(channels), nullptr, 72.0,
                                                   72.0, nullptr);
}

inline ChannelInfo ColorChannel(const std::string& name, const std::array<double, 2>& decode = {0.0, 1.0})
{
    return ChannelInfo(name, ChannelInfo::ChannelType::Color, decode);
}

inline ChannelInfo AlphaChannel(const std::array<double, 2>& decode = {0.0, 1.0})
{
    return ChannelInfo("", ChannelInfo::ChannelType::Alpha, decode);
}

/// The document of all tests that need none of their own.
inline const OrvDoc::Document& AnyDocument()
{
    static const std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    return *document;
}

inline std::shared_ptr<const PictureData> MakePicture(const ColorSpace& space,
                                                      std::vector<ChannelInfo> channels)
{
    return PictureData::Factory(AnyDocument(), MakeSource(space, std::move(channels))).Get();
}

} // namespace OrvImg
