#pragma once

#include <orv_color/color_list.h>

#include <memory>

namespace OrvImg
{
class PictureSource;
}

namespace HarrowSupport::Comparators
{

/// Whether colours are multiplied by what a soft mask lets through of them before they are compared, so that
/// what is hidden does not count.
struct SoftMaskWeighting
{
    struct Side
    {
        std::shared_ptr<const OrvImg::PictureSource> source; ///< Of the mask.
        OrvColor::ChannelMappingPolicy::Value channel;       ///< By its position in a pixel of the mask.
    };

    bool engaged = false; ///< What follows means nothing otherwise.
    Side left;
    Side right;
};

} // namespace HarrowSupport::Comparators
