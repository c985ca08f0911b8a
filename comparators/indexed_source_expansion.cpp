#include "indexed_source_expansion.h"

#include <orv_img/buffered_picture_source.h>
#include <orv_img/color_table.h>

#include <cstddef>

namespace HarrowSupport::Comparators
{

std::shared_ptr<const OrvImg::PictureSource>
ExpandIndexedSource(const std::shared_ptr<const OrvImg::PictureSource>& source, HeldBuffers& buffers)
{
    const std::shared_ptr<const OrvImg::ColorTable> table = source->GetColorTable();
    const HeldBuffers::Buffer buffer = buffers.Get(source);
    OrvImg::PictureBuffer::Factory factory(buffer->width, buffer->height, table->GetChannelCount(), 8);
    // Without a channel there is no sample to look up.
    for (std::size_t row = 0; buffer->channels != 0 && row < buffer->height; ++row) {
        table->MapIndexedBuffer(factory.GetRowPtr(row), buffer->GetRowPtr(row), buffer->bitsPerChannel,
                                buffer->width, 0);
    }
    return std::make_shared<OrvImg::BufferedPictureSource>(
        factory.GetResult(), source->GetColorSpace(), source->GetChannelInfos(), nullptr, source->GetXDpi(),
        source->GetYDpi(), source->GetClippingPath());
}

} // namespace HarrowSupport::Comparators
