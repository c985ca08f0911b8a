#include <orv_img/picture_stream.h>

namespace OrvImg
{

PictureStream::~PictureStream() = default;

} // namespace OrvImg
