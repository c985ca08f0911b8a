#include <orv_sys/utf8.h>

namespace OrvSys
{
namespace Detail
{

namespace
{

// What the first byte says: the length, the bits of the value that it holds, and the least value of that
// length.
struct Lead
{
    std::size_t length;
    unsigned char valueBits;
    char32_t least;
};

Lead ReadLead(unsigned char byte)
{
    if (byte < 0x80)
        return {1, 0x7F, 0};
    if (byte >= 0xC2 && byte <= 0xDF)
        return {2, 0x1F, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {3, 0x0F, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {4, 0x07, 0x10000};
    return {0, 0, 0};
}

} // namespace

UTF8Character ReadUTF8Character(std::string_view text)
{
    if (text.empty())
        return {};
    const unsigned char first = static_cast<unsigned char>(text.front());
    const Lead lead = ReadLead(first);
    if (lead.length == 0 || lead.length > text.size())
        return {};
    char32_t value = first & lead.valueBits;
    for (std::size_t index = 1; index < lead.length; ++index) {
        const unsigned char byte = static_cast<unsigned char>(text[index]);
        if ((byte & 0xC0) != 0x80)
            return {};
        value = (value << 6) | (byte & 0x3Fu);
    }
    const bool isSurrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value < lead.least || value > 0x10FFFF || isSurrogate)
        return {};
    return {value, lead.length};
}

} // namespace Detail
} // namespace OrvSys
