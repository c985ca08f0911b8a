#pragma once

#include <orv_img/picture_buffer.h>
#include <orv_img/picture_source.h>

#include <memory>
#include <utility>
#include <vector>

namespace HarrowSupport::Comparators
{

/// The buffers that one comparison of two pictures has asked for. A source may let its buffer go as soon as
/// nobody holds it, and a picture is looked at more than once: as the weight of a comparison and as the mask
/// itself, or as its own mask. Held until the comparison ends, it is decoded once.
class HeldBuffers
{
public:
    using Source = std::shared_ptr<const OrvImg::PictureSource>;
    using Buffer = std::shared_ptr<const OrvImg::PictureBuffer>;

    /// Asks the source at its first call.
    Buffer Get(const Source& source)
    {
        for (const auto& entry : held) {
            if (entry.first == source)
                return entry.second;
        }
        held.emplace_back(source, source->GetPictureBuffer());
        return held.back().second;
    }

private:
    // The sources are held as well: the address of one that is gone might be that of another one. Few stand
    // here at a time, two pictures and two masks, and what indexed ones expand to.
    std::vector<std::pair<Source, Buffer>> held;
};

} // namespace HarrowSupport::Comparators
