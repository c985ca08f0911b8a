#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>

#include <orv_color/color_space.h>
#include <orv_color/rendering_intent.h>
#include <orv_img/channel_info.h>
#include <orv_img/color_space.h>
#include <orv_img/color_table.h>
#include <orv_img/picture_stream.h>
#include <orv_sys/pdf_object.h>

#include "pdf/reader/pictures/file_picture.h"
#include "pdf/reader/pictures/picture_decoding.h"
#include "pdf/reader/pictures/picture_entries.h"

namespace OrvPdf
{

/// All that is known of a picture without a look at its samples.
struct PictureDescription
{
    /// Of the data, without extra channels that stand in pictures of their own.
    PictureShape shape{};
    OrvImg::ColorSpace space;
    std::vector<OrvImg::ChannelInfo> channels;
    std::shared_ptr<const OrvImg::ColorTable> table;
    std::array<double, 2> dpi = {0.0, 0.0};
    OrvColor::ColorSpace::Pointer native;
    boost::optional<OrvColor::RenderingIntent> intent;
    FileMask mask;
    /// May be painted as it stands under any resources.
    bool mayStand = true;
    bool isUndecodable = false;
    OrvImg::PictureStream::Type type = OrvImg::PictureStream::Type::Samples;
    /// The filters and their parameters, as the dictionary has them.
    OrvSys::PdfObject filters;
    /// The channels behind those of the data, one in each, of the same size and depth.
    std::vector<std::shared_ptr<const FilePicture>> extraChannels;
};

/// Describes a picture by its dictionary, whose values have no references, and by the header of its data
/// where that says more. `space` may be null for a stencil and for JPEG 2000 data. Masks and extra channels
/// in pictures of their own are left to the caller. Throws std::invalid_argument, in words that can follow
/// "object 12 0: ", if it is no picture; what else is wrong is told in `problems`. Decodes no samples.
PictureDescription DescribePicture(const SourceFile& file, const OrvSys::PdfObject& dictionary,
                                   const PictureEntries& entries, const EncodedStream& encoded,
                                   const OrvColor::ColorSpace::Pointer& space,
                                   std::vector<std::string>& problems);

} // namespace OrvPdf
