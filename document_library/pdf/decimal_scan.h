#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace OrvPdf
{

/// A decimal number as its text gives it: `(-1)^isNegative * mantissa * 10^exponent`, where `isExact`.
/// Otherwise the text has too many digits for the mantissa, or signs among them, and DecimalToDouble has to
/// see the text.
struct DecimalScan
{
    std::uint64_t mantissa = 0;
    std::int32_t exponent = 0;
    bool isNegative = false;
    bool isExact = true;
    bool isInteger = true;

    /// False for a text such as `.` or `-`.
    bool hasDigits = false;

    /// More than one leading sign, or a sign among the digits.
    bool hasOddSigns = false;
};

/// Reads the longest number of PDF syntax at the start of `text` (see number_text.h for what is tolerated)
/// and returns the number of its bytes, 0 if there is none. The exponent is never above 0.
std::size_t ScanDecimalSlow(std::string_view text, DecimalScan& scan);

/// The nearest double to `mantissa * 10^exponent`, ties to even; see number_text.h.
double DecimalToDoubleSlow(std::uint64_t mantissa, std::int64_t exponent);

/// The same for float.
float DecimalToFloat(std::uint64_t mantissa, std::int64_t exponent, bool isNegative);

/// The nearest double or float to the number that ScanDecimal found in `text`, which has any length, times
/// ten to the power of `decimalShift`. Linear in the text, without allocation.
double LongDecimalToDouble(std::string_view text, std::int64_t decimalShift);
float LongDecimalToFloat(std::string_view text, std::int64_t decimalShift);

/// ScanDecimalSlow with a short way for ordinary numbers. Inline, since content streams are mostly numbers.
inline std::size_t ScanDecimal(std::string_view text, DecimalScan& scan)
{
    const char* const begin = text.data();
    const char* const end = begin + text.size();
    const char* at = begin;
    bool isNegative = false;
    if (at != end && (*at == '-' || *at == '+')) {
        isNegative = *at == '-';
        ++at;
    }
    const char* const digits = at;
    std::uint64_t mantissa = 0;
    unsigned digit = 0;
    while (at != end && (digit = static_cast<unsigned char>(*at) - unsigned{'0'}) <= 9) {
        mantissa = mantissa * 10 + digit;
        ++at;
    }
    std::ptrdiff_t digitCount = at - digits;
    std::ptrdiff_t decimals = 0;
    bool isInteger = true;
    if (at != end && *at == '.') {
        isInteger = false;
        const char* const fraction = ++at;
        while (at != end && (digit = static_cast<unsigned char>(*at) - unsigned{'0'}) <= 9) {
            mantissa = mantissa * 10 + digit;
            ++at;
        }
        decimals = at - fraction;
        digitCount += decimals;
    }
    // 19 digits are the most that always fit; the sum has wrapped round beyond them.
    if (digitCount == 0 || digitCount > 19 || (at != end && *at == '-')) {
        return ScanDecimalSlow(text, scan);
    }
    scan.mantissa = mantissa;
    scan.exponent = static_cast<std::int32_t>(-decimals);
    scan.isNegative = isNegative;
    scan.isExact = true;
    scan.isInteger = isInteger;
    scan.hasDigits = true;
    scan.hasOddSigns = false;
    return static_cast<std::size_t>(at - begin);
}

/// The nearest double to `mantissa * 10^exponent`. Where both the mantissa and the power of ten are exact
/// doubles, the one operation between them is the one rounding (Clinger 1990).
inline double DecimalToDouble(std::uint64_t mantissa, std::int64_t exponent, bool isNegative)
{
    static constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    double value;
    if (mantissa <= (std::uint64_t{1} << 53) && exponent >= -22 && exponent <= 22) {
        const double whole = static_cast<double>(static_cast<std::int64_t>(mantissa));
        value = exponent < 0 ? whole / powers[-exponent] : whole * powers[exponent];
    } else {
        value = DecimalToDoubleSlow(mantissa, exponent);
    }
    return isNegative ? -value : value;
}

} // namespace OrvPdf
