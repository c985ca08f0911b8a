#include "orv_sys/digest.h"

namespace OrvSys::Detail
{

std::string DigestText(std::uint64_t digest)
{
    std::string text(16, '0');
    for (auto place = text.rbegin(); place != text.rend(); ++place, digest >>= 4)
        *place = "0123456789abcdef"[digest & 15];
    return text;
}

} // namespace OrvSys::Detail
