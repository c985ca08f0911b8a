#include "orv_sys/decimal.h"

#include <array>
#include <charconv>
#include <limits>

namespace OrvSys::Detail
{

namespace
{

bool HasSign(std::string_view text)
{
    return !text.empty() && (text.front() == '+' || text.front() == '-');
}

} // namespace

bool IsDecimal(std::string_view text)
{
    if (HasSign(text))
        text.remove_prefix(1);
    std::size_t digits = 0;
    std::size_t points = 0;
    for (const char character : text) {
        if (character == '.')
            ++points;
        else if (character >= '0' && character <= '9')
            ++digits;
        else
            return false;
    }
    return digits > 0 && points <= 1;
}

std::string NormalizeDecimal(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (HasSign(text))
        text.remove_prefix(1);
    while (!text.empty() && text.front() == '0')
        text.remove_prefix(1);
    if (text.find('.') != std::string_view::npos) {
        while (text.back() == '0')
            text.remove_suffix(1);
        if (text.back() == '.')
            text.remove_suffix(1);
    }
    if (text.empty())
        return "0";
    std::string normal(negative ? "-" : "");
    if (text.front() == '.')
        normal += '0';
    return normal.append(text);
}

double ParseDecimal(std::string_view text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (HasSign(text))
        text.remove_prefix(1);
    double value = 0.0;
    const auto result =
        std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (result.ec == std::errc::result_out_of_range) {
        const bool large = text.substr(0, text.find('.')).find_first_not_of('0') != std::string_view::npos;
        value = large ? std::numeric_limits<double>::max() : 0.0;
    }
    return negative ? -value : value;
}

std::string FormatDecimal(double value)
{
    // The smallest subnormal has 17 digits behind 323 zeros.
    std::array<char, 512> buffer;
    const auto result =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed);
    return std::string(buffer.data(), result.ptr);
}

} // namespace OrvSys::Detail
