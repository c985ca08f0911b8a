#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include <orv_img/channel_info.h>
#include <orv_img/color_space.h>
#include <orv_img/color_table.h>
#include <orv_img/picture_buffer.h>
#include <orv_img/picture_stream.h>
#include <orv_sys/export.h>

namespace Plexa
{
class Compound;
}

namespace OrvImg
{

/// Supplies the samples of a picture and says what they mean. Held as shared pointer to const; any number of
/// threads may ask.
class ORV_EXPORT PictureSource
{
public:
    virtual ~PictureSource();

    /// All samples, decoded when somebody asks. Samples that damaged data doesn't have are zero, and so are
    /// all of a picture that can't be decoded; the document's active errors tell either. Hold the buffer as
    /// long as it is in use: the source may let it go, and then decodes anew. Throws std::bad_alloc alone.
    virtual std::shared_ptr<const PictureBuffer> GetPictureBuffer() const = 0;

    /// The samples as they are stored. Throws as GetPictureBuffer does.
    virtual std::unique_ptr<PictureStream> GetPictureStream() const = 0;

    virtual PictureStream::Type GetStreamType() const = 0;

    /// Null if the picture is not indexed. If it is, the samples are table positions in one channel, and the
    /// channels that the picture tells are those of the table's colours.
    virtual std::shared_ptr<const ColorTable> GetColorTable() const = 0;

    virtual const ColorSpace& GetColorSpace() const = 0;

    /// Pixels.
    virtual std::size_t GetWidth() const = 0;
    virtual std::size_t GetHeight() const = 0;

    /// Dots per inch; 0 if nothing is known.
    virtual double GetXDpi() const = 0;
    virtual double GetYDpi() const = 0;

    /// Of the buffer.
    virtual std::size_t GetBitsPerChannel() const = 0;

    /// One element for each channel, colour channels before others.
    virtual const std::vector<ChannelInfo>& GetChannelInfos() const = 0;

    /// Null if the picture has none.
    virtual std::shared_ptr<const Plexa::Compound> GetClippingPath() const = 0;

protected:
    PictureSource();
};

} // namespace OrvImg
