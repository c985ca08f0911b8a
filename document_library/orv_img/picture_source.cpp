#include <orv_img/picture_source.h>

namespace OrvImg
{

PictureSource::PictureSource() = default;
PictureSource::~PictureSource() = default;

} // namespace OrvImg
