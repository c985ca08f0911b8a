#include <orv_sys/uni16char.h>

#include <limits>
#include <string_view>

#include <orv_sys/utf8.h>

namespace OrvSys
{

int UTF8ToUni16Char(const char* source, wchar_t* target, std::size_t capacity)
{
    const std::string_view text = source ? std::string_view(source) : std::string_view();

    std::size_t units = 0;
    for (std::size_t at = 0; at < text.size();) {
        const Detail::UTF8Character character = Detail::ReadUTF8Character(text.substr(at));
        if (character.length == 0)
            return -1;
        units += character.value > 0xFFFF ? 2 : 1;
        at += character.length;
    }
    if (units == 0) {
        if (capacity > 0)
            *target = 0;
        return 0;
    }
    if (units >= capacity || units > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        return -2;

    for (std::size_t at = 0; at < text.size();) {
        const Detail::UTF8Character character = Detail::ReadUTF8Character(text.substr(at));
        if (character.value > 0xFFFF) {
            const char32_t offset = character.value - 0x10000;
            *target++ = static_cast<wchar_t>(0xD800 + (offset >> 10));
            *target++ = static_cast<wchar_t>(0xDC00 + (offset & 0x3FF));
        } else {
            *target++ = static_cast<wchar_t>(character.value);
        }
        at += character.length;
    }
    *target = 0;
    return static_cast<int>(units);
}

} // namespace OrvSys
