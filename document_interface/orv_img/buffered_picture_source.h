#pragma once

#include <orv_img/picture_source.h>

namespace OrvImg
{

/// A source over a finished buffer.
class ORV_EXPORT BufferedPictureSource : public PictureSource
{
public:
    /// The table and the path may be null. Throws std::invalid_argument if the buffer is null.
    BufferedPictureSource(std::shared_ptr<const PictureBuffer> buffer, const ColorSpace& space,
                          std::vector<ChannelInfo> channels, std::shared_ptr<const ColorTable> table,
                          double xDpi, double yDpi, std::shared_ptr<const Plexa::Compound> clippingPath);
    ~BufferedPictureSource() override;

    std::shared_ptr<const PictureBuffer> GetPictureBuffer() const override { return buffer; }
    std::unique_ptr<PictureStream> GetPictureStream() const override;
    PictureStream::Type GetStreamType() const override { return PictureStream::Type::Samples; }
    std::shared_ptr<const ColorTable> GetColorTable() const override { return table; }
    const ColorSpace& GetColorSpace() const override { return space; }
    std::size_t GetWidth() const override { return buffer->width; }
    std::size_t GetHeight() const override { return buffer->height; }
    double GetXDpi() const override { return xDpi; }
    double GetYDpi() const override { return yDpi; }
    std::size_t GetBitsPerChannel() const override { return buffer->bitsPerChannel; }
    const std::vector<ChannelInfo>& GetChannelInfos() const override { return channels; }
    std::shared_ptr<const Plexa::Compound> GetClippingPath() const override { return clippingPath; }

private:
    std::shared_ptr<const PictureBuffer> buffer;
    ColorSpace space;
    std::vector<ChannelInfo> channels;
    std::shared_ptr<const ColorTable> table;
    double xDpi;
    double yDpi;
    std::shared_ptr<const Plexa::Compound> clippingPath;
};

} // namespace OrvImg
