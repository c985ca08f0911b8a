#include <orv_img/buffered_picture_source.h>

#include <stdexcept>
#include <utility>

#include "orv_img/samples_stream.h"

namespace OrvImg
{

BufferedPictureSource::BufferedPictureSource(std::shared_ptr<const PictureBuffer> givenBuffer,
                                             const ColorSpace& givenSpace,
                                             std::vector<ChannelInfo> givenChannels,
                                             std::shared_ptr<const ColorTable> givenTable, double givenXDpi,
                                             double givenYDpi,
                                             std::shared_ptr<const Plexa::Compound> givenPath)
    : buffer(std::move(givenBuffer)),
      space(givenSpace),
      channels(std::move(givenChannels)),
      table(std::move(givenTable)),
      xDpi(givenXDpi),
      yDpi(givenYDpi),
      clippingPath(std::move(givenPath))
{
    if (!buffer)
        throw std::invalid_argument("A picture needs a buffer with its samples.");
}

BufferedPictureSource::~BufferedPictureSource() = default;

std::unique_ptr<PictureStream> BufferedPictureSource::GetPictureStream() const
{
    return Detail::MakeSamplesStream(buffer);
}

} // namespace OrvImg
