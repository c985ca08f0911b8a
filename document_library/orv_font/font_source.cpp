#include "orv_font/font_source.h"

namespace OrvFont::Detail
{

void FontSource::Decode(std::string_view bytes, std::vector<Character>& characters) const
{
    for (std::size_t index = 0; index < bytes.size(); index += 2) {
        std::uint32_t code = static_cast<unsigned char>(bytes[index]);
        code <<= 8U;
        code |= index + 1 < bytes.size() ? static_cast<unsigned char>(bytes[index + 1]) : 0U;
        characters.push_back({code, code, 2});
    }
}

} // namespace OrvFont::Detail
