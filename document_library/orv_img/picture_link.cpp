#include <orv_img/picture_link.h>

#include <ostream>

namespace OrvImg
{

bool operator==(const PictureLink& left, const PictureLink& right)
{
    return left.uri == right.uri && left.definition == right.definition;
}

std::ostream& operator<<(std::ostream& stream, const PictureLink& link)
{
    stream << link.uri;
    if (!link.definition.IsNull())
        stream << " (" << link.definition.GetDigestText() << ')';
    return stream;
}

} // namespace OrvImg
