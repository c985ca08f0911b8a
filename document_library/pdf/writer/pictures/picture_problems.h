#pragma once

#include <vector>

#include <boost/optional.hpp>

#include <orv_img/channel_info.h>

namespace OrvImg
{
class PaintedPicture;
class PictureData;
} // namespace OrvImg

namespace OrvPdf
{

/// Why a picture cannot be written, in the plural; null if it can.
const char* FindPictureProblem(const OrvImg::PaintedPicture& picture);

/// The same for the picture of an image mask or a stencil mask.
const char* FindStencilProblem(const OrvImg::PictureData& data);

/// The channels of a picture by the names and decode ranges that its channel mapping gives them; those that
/// it does not map are "None". Nothing if no colour space can say it.
boost::optional<std::vector<OrvImg::ChannelInfo>> NameByMapping(const OrvImg::PaintedPicture& picture);

/// Whether the channels of the picture stand for what they are named for.
bool HasDefaultMapping(const OrvImg::PaintedPicture& picture);

/// Whether the picture has the mask that its file gives it, and shows what its channels are named for.
bool IsAsInFile(const OrvImg::PaintedPicture& picture);

} // namespace OrvPdf
