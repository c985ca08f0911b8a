#pragma once

#include <memory>

#include <orv_img/picture_stream.h>

namespace OrvImg
{

class PictureBuffer;

namespace Detail
{

/// The rows of a buffer, which is neither null nor copied, one behind the other.
std::unique_ptr<PictureStream> MakeSamplesStream(std::shared_ptr<const PictureBuffer> buffer);

} // namespace Detail

} // namespace OrvImg
