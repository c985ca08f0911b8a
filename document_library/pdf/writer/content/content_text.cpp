#include "pdf/writer/content/content_text.h"

#include <orv_sys/pdf_object.h>

#include "orv_sys/utf8.h"
#include "pdf/number_text.h"

namespace OrvPdf
{

namespace
{

bool IsPlainAscii(std::string_view text)
{
    for (const char character : text) {
        if (character < ' ' || character > '~') {
            return false;
        }
    }
    return true;
}

void AppendUnit(std::string& bytes, char32_t unit)
{
    bytes.push_back(static_cast<char>(unit >> 8 & 0xFF));
    bytes.push_back(static_cast<char>(unit & 0xFF));
}

} // namespace

void AppendLength(std::string& out, double milliPoints)
{
    AppendNumber(out, milliPoints, 3);
}

void AppendMatrix(std::string& out, const Matrix& matrix)
{
    for (const double number : {matrix.a, matrix.b, matrix.c, matrix.d}) {
        AppendNumber(out, number, 0);
        out.push_back(' ');
    }
    AppendLength(out, matrix.x.value);
    out.push_back(' ');
    AppendLength(out, matrix.y.value);
}

void AppendName(std::string& out, std::string_view name)
{
    constexpr char digits[] = "0123456789ABCDEF";
    out.push_back('/');
    for (const char character : name) {
        if (character > ' ' && character <= '~' && !std::strchr("()<>[]{}/%#", character)) {
            out.push_back(character);
            continue;
        }
        const auto code = static_cast<unsigned char>(character);
        out.push_back('#');
        out.push_back(digits[code >> 4]);
        out.push_back(digits[code & 15]);
    }
}

void AppendTextString(std::string& out, std::string_view utf8)
{
    out.append(OrvSys::PdfObject::String(EncodeTextString(utf8)).Serialize());
}

std::string EncodeTextString(std::string_view utf8)
{
    if (IsPlainAscii(utf8)) {
        return std::string(utf8);
    }
    std::string bytes("\xFE\xFF");
    while (!utf8.empty()) {
        const OrvSys::Detail::UTF8Character character = OrvSys::Detail::ReadUTF8Character(utf8);
        char32_t value = character.length == 0 ? U'\uFFFD' : character.value;
        if (value > 0xFFFF) {
            value -= 0x10000;
            AppendUnit(bytes, 0xD800 + (value >> 10));
            value = 0xDC00 + (value & 0x3FF);
        }
        AppendUnit(bytes, value);
        utf8.remove_prefix(character.length == 0 ? 1 : character.length);
    }
    return bytes;
}

} // namespace OrvPdf
