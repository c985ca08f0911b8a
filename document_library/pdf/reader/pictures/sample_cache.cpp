#include "pdf/reader/pictures/sample_cache.h"

#include <utility>

namespace OrvPdf
{

namespace
{

std::uint64_t SizeOf(const OrvImg::PictureBuffer& buffer)
{
    return std::uint64_t{buffer.GetBytesPerRow()} * buffer.height;
}

} // namespace

void SampleCache::Keep(std::shared_ptr<const OrvImg::PictureBuffer> buffer)
{
    const std::uint64_t size = SizeOf(*buffer);
    if (size > most) {
        return;
    }
    // Buffers are freed behind the lock.
    std::list<std::shared_ptr<const OrvImg::PictureBuffer>> dropped;
    const std::lock_guard<std::mutex> lock(mutex);
    while (bytes + size > most) {
        bytes -= SizeOf(*buffers.front());
        dropped.splice(dropped.end(), buffers, buffers.begin());
    }
    bytes += size;
    buffers.push_back(std::move(buffer));
}

} // namespace OrvPdf
