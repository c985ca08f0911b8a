#include "orv_doc/text_form.h"

#include <charconv>
#include <initializer_list>

namespace OrvDoc::Detail
{

namespace
{

template <typename Number>
void AppendShortest(std::string& text, Number number)
{
    // The longest shortest form of a double, "-2.2250738585072014e-308", has 24 characters.
    char digits[32];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, result.ptr);
}

void AppendList(std::string& text, std::initializer_list<double> numbers)
{
    const char* separator = "(";
    for (const double number : numbers) {
        text += separator;
        AppendShortest(text, number);
        separator = ", ";
    }
    text += ')';
}

} // namespace

void AppendNumber(std::string& text, double number)
{
    AppendShortest(text, number);
}

void AppendNumber(std::string& text, float number)
{
    AppendShortest(text, number);
}

void AppendQuoted(std::string& text, const std::string& value)
{
    constexpr char digits[] = "0123456789abcdef";
    text += '"';
    for (const char character : value) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F) {
            text += "\\x";
            text += digits[code >> 4];
            text += digits[code & 0xF];
            continue;
        }
        if (character == '"' || character == '\\')
            text += '\\';
        text += character;
    }
    text += '"';
}

void AppendRectangle(std::string& text,
                     const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& rectangle)
{
    AppendList(text, {rectangle.origin.x.value, rectangle.origin.y.value, rectangle.size.width.value,
                      rectangle.size.height.value});
}

void AppendTransformation(std::string& text,
                          const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation)
{
    const auto& t = transformation;
    AppendList(text, {t.a, t.b, t.c, t.d, t.x.value, t.y.value});
}

void AppendCount(std::string& text, std::size_t count, const char* noun)
{
    text += std::to_string(count);
    text += ' ';
    text += noun;
    if (count != 1)
        text += 's';
}

} // namespace OrvDoc::Detail
