#include "pdf/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "pdf/decimal_scan.h"

namespace OrvPdf
{

namespace
{

/// Readers take a number without a point for an integer of 64 bits. One of more digits is written as a real,
/// which all of them hold.
constexpr int digitsOfIntegers = 18;

/// Appends `digits` with the point behind the first `whole` of them, which may be negative or beyond their
/// end.
void AppendPlaced(std::string& out, bool isNegative, const char* digits, int count, int whole)
{
    if (whole >= count || whole <= 0) {
        if (isNegative) {
            out.push_back('-');
        }
        if (whole <= 0) {
            out.append("0.");
            out.append(static_cast<std::size_t>(-whole), '0');
        }
        out.append(digits, static_cast<std::size_t>(count));
        if (whole > count) {
            out.append(static_cast<std::size_t>(whole - count), '0');
        }
        if (whole > digitsOfIntegers) {
            out.append(".0");
        }
        return;
    }
    char text[32];
    char* at = text;
    *at = '-';
    at += isNegative ? 1 : 0;
    std::memcpy(at, digits, static_cast<std::size_t>(whole));
    at += whole;
    *at++ = '.';
    std::memcpy(at, digits + whole, static_cast<std::size_t>(count - whole));
    at += count - whole;
    out.append(text, static_cast<std::size_t>(at - text));
}

void AppendZero(std::string& out, bool isNegative)
{
    out.append(isNegative ? "-0" : "0");
}

/// Whole numbers below 2^53 have no shorter decimal than their own digits without the zeros at the end: their
/// neighbours are at most one apart, and a number with fewer digits would be another whole number.
void AppendWhole(std::string& out, std::int64_t value, bool isNegative, int decimalShift)
{
    char digits[24];
    const auto result = std::to_chars(digits, digits + sizeof digits, value);
    const int length = static_cast<int>(result.ptr - digits);
    int count = length;
    while (digits[count - 1] == '0') {
        --count;
    }
    AppendPlaced(out, isNegative, digits, count, length - decimalShift);
}

/// Few decimals are the usual case, and found faster than by a search for the shortest digits. A decimal of
/// up to 15 digits that reads back as the value is the shortest one but for zeros at its end, since no two
/// such decimals read as the same double.
bool AppendFewDecimals(std::string& out, double magnitude, bool isNegative, int decimalShift)
{
    constexpr double scale = 1e6;
    constexpr double bound = 1e15;
    const double scaled = magnitude * scale;
    if (!(scaled < bound)) {
        return false;
    }
    const std::int64_t digits = static_cast<std::int64_t>(scaled + 0.5);
    if (static_cast<double>(digits) / scale != magnitude) {
        return false;
    }
    AppendWhole(out, digits, isNegative, decimalShift + 6);
    return true;
}

template <typename Real>
void AppendShortest(std::string& out, Real magnitude, bool isNegative, int decimalShift)
{
    char text[32];
    const auto result = std::to_chars(text, text + sizeof text, magnitude, std::chars_format::scientific);
    const char* const exponentMark = static_cast<const char*>(std::memchr(text, 'e', sizeof text));
    int exponent = 0;
    std::from_chars(exponentMark + (exponentMark[1] == '+' ? 2 : 1), result.ptr, exponent);
    int count = static_cast<int>(exponentMark - text);
    if (count > 1) {
        // d.ddd: the first digit moves over the point.
        text[1] = text[0];
        --count;
        AppendPlaced(out, isNegative, text + 1, count, exponent + 1 - decimalShift);
        return;
    }
    AppendPlaced(out, isNegative, text, count, exponent + 1 - decimalShift);
}

bool ScanWhole(std::string_view text, DecimalScan& scan)
{
    return !text.empty() && ScanDecimal(text, scan) == text.size();
}

} // namespace

bool ParseNumber(std::string_view text, int decimalShift, ParsedNumber& number)
{
    DecimalScan scan;
    if (!ScanWhole(text, scan)) {
        return false;
    }
    number.isInteger = scan.isInteger;
    number.value = scan.isExact ? DecimalToDouble(scan.mantissa, std::int64_t{scan.exponent} + decimalShift,
                                                  scan.isNegative)
                                : LongDecimalToDouble(text, decimalShift);
    return true;
}

bool ParseNumber(std::string_view text, int decimalShift, double& value)
{
    ParsedNumber number;
    if (!ParseNumber(text, decimalShift, number)) {
        return false;
    }
    value = number.value;
    return true;
}

bool ParseFloat(std::string_view text, float& value)
{
    DecimalScan scan;
    if (!ScanWhole(text, scan)) {
        return false;
    }
    value = scan.isExact ? DecimalToFloat(scan.mantissa, scan.exponent, scan.isNegative)
                         : LongDecimalToFloat(text, 0);
    return true;
}

void AppendNumber(std::string& out, double value, int decimalShift)
{
    constexpr double exactWhole = 9007199254740992.0;
    const bool isNegative = std::signbit(value);
    const double magnitude = isNegative ? -value : value;
    if (magnitude < exactWhole) {
        const std::int64_t whole = static_cast<std::int64_t>(magnitude);
        if (static_cast<double>(whole) == magnitude) {
            if (whole == 0) {
                AppendZero(out, isNegative);
                return;
            }
            AppendWhole(out, whole, isNegative, decimalShift);
            return;
        }
    } else if (!std::isfinite(value)) {
        throw std::invalid_argument(
            "A number of a PDF file must be finite; infinity and not-a-number have no text.");
    }
    if (!AppendFewDecimals(out, magnitude, isNegative, decimalShift)) {
        AppendShortest(out, magnitude, isNegative, decimalShift);
    }
}

void AppendFloat(std::string& out, float value)
{
    const bool isNegative = std::signbit(value);
    if (value == 0) {
        AppendZero(out, isNegative);
        return;
    }
    if (!std::isfinite(value)) {
        throw std::invalid_argument(
            "A number of a PDF file must be finite; infinity and not-a-number have no text.");
    }
    AppendShortest(out, isNegative ? -value : value, isNegative, 0);
}

} // namespace OrvPdf
