#include <vantry/percent_encoding.h>

#include <orv_sys/utf8.h>

namespace Vantry
{

namespace
{

// The value of a hexadecimal digit, or -1.
int ReadDigit(char character)
{
    if (character >= '0' && character <= '9')
        return character - '0';
    if (character >= 'A' && character <= 'F')
        return character - 'A' + 10;
    if (character >= 'a' && character <= 'f')
        return character - 'a' + 10;
    return -1;
}

// Reads an encoded byte at the start of the text.
bool ReadEncoded(std::string_view text, char& byte)
{
    if (text.size() < 3 || text[0] != '%')
        return false;
    const int high = ReadDigit(text[1]);
    const int low = ReadDigit(text[2]);
    if (high < 0 || low < 0)
        return false;
    byte = static_cast<char>(high * 16 + low);
    return true;
}

bool IsASCII(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

} // namespace

bool IsUnreserved(char character)
{
    const bool isLetter = (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
    const bool isDigit = character >= '0' && character <= '9';
    return isLetter || isDigit || character == '-' || character == '.' || character == '_' ||
           character == '~';
}

bool IsSubDelimiter(char character)
{
    constexpr std::string_view delimiters = "!$&'()*+,;=";
    return delimiters.find(character) != std::string_view::npos;
}

bool IsSegmentCharacter(char character)
{
    return IsUnreserved(character) || IsSubDelimiter(character) || character == ':' || character == '@';
}

void AppendEncoded(std::string& text, char byte)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    const unsigned char value = static_cast<unsigned char>(byte);
    text += '%';
    text += digits[value >> 4];
    text += digits[value & 0x0F];
}

std::string PercentEncode(std::string_view text, bool (*staysPlain)(char))
{
    std::string encoded;
    encoded.reserve(text.size());
    for (const char character : text) {
        if (staysPlain(character))
            encoded += character;
        else
            AppendEncoded(encoded, character);
    }
    return encoded;
}

std::string PercentDecode(std::string_view text, bool (*mayDecode)(char))
{
    std::string decoded;
    decoded.reserve(text.size());
    // Bytes outside ASCII in a row, plain or encoded, until it shows whether they are UTF-8.
    std::string pending;
    const auto flush = [&decoded, &pending]() {
        decoded += MakeUTF8(pending);
        pending.clear();
    };
    for (std::size_t at = 0; at < text.size();) {
        char byte = text[at];
        const bool isEncoded = ReadEncoded(text.substr(at), byte);
        at += isEncoded ? 3 : 1;
        if (!IsASCII(byte)) {
            pending += byte;
            continue;
        }
        flush();
        if (isEncoded && !mayDecode(byte))
            AppendEncoded(decoded, byte);
        else
            decoded += byte;
    }
    flush();
    return decoded;
}

std::string MakeUTF8(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = OrvSys::Detail::ReadUTF8Character(text).length;
        if (length == 0)
            AppendEncoded(result, text.front());
        else
            result += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

std::string Quote(std::string_view text)
{
    const auto staysPlain = [](char character) {
        return static_cast<unsigned char>(character) >= 0x20 && character != 0x7F;
    };
    return "'" + MakeUTF8(PercentEncode(text, staysPlain)) + "'";
}

std::string NormalizePercentEncoding(std::string_view text, bool (*isPlain)(char))
{
    std::string normalized;
    normalized.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        char byte = text[at];
        const bool isEncoded = ReadEncoded(text.substr(at), byte);
        at += isEncoded ? 3 : 1;
        if (isEncoded && !isPlain(byte))
            AppendEncoded(normalized, byte);
        else
            normalized += byte;
    }
    return normalized;
}

} // namespace Vantry
