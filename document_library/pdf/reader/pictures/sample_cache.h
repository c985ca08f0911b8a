#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <mutex>

#include <orv_img/picture_buffer.h>

namespace OrvPdf
{

/// Keeps the samples that were decoded last for those who ask again, up to a number of bytes, so that a
/// document of large pictures does not take more memory with each of them. Any number of threads may use it.
class SampleCache
{
public:
    /// A picture of 4096 by 4096 pixels in four channels fits several times.
    static constexpr std::uint64_t defaultBytes = std::uint64_t{256} << 20;

    explicit SampleCache(std::uint64_t givenBytes = defaultBytes) : most(givenBytes) {}

    /// Lets go of the oldest ones until there is room. One that is larger than all room is not kept.
    void Keep(std::shared_ptr<const OrvImg::PictureBuffer> buffer);

private:
    const std::uint64_t most;
    std::mutex mutex;
    std::list<std::shared_ptr<const OrvImg::PictureBuffer>> buffers;
    std::uint64_t bytes = 0;
};

} // namespace OrvPdf
