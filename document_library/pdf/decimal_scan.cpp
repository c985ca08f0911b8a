#include "pdf/decimal_scan.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace OrvPdf
{

namespace
{

/// Digits that can decide the rounding of a double: no tie between two doubles has more than 767 significant
/// ones. What follows them only matters by being zero or not.
constexpr std::size_t decidingDigits = 768;

/// Decimal exponents of which no mantissa of this length comes back into the range of a double.
constexpr std::int64_t exponentBound = 100000;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Significant digits and an exponent as std::from_chars reads them.
class DigitText
{
public:
    void AddDigit(char digit)
    {
        if (length == 0 && digit == '0') {
            return;
        }
        if (length < decidingDigits) {
            text[length++] = digit;
            return;
        }
        ++leftOut;
        hasMore = hasMore || digit != '0';
    }

    template <typename Real>
    Real Value(std::int64_t exponent)
    {
        if (length == 0) {
            return 0;
        }
        exponent += leftOut;
        if (hasMore) {
            text[length++] = '1';
            --exponent;
        }
        const bool isHuge = exponent + static_cast<std::int64_t>(length) > 0;
        exponent = std::clamp(exponent, -exponentBound, exponentBound);
        char* end = text + length;
        *end++ = 'e';
        end = std::to_chars(end, text + sizeof text, exponent).ptr;
        Real value = 0;
        const auto result = std::from_chars(text, end, value);
        if (result.ec == std::errc() && value <= std::numeric_limits<Real>::max()) {
            return value;
        }
        return isHuge ? std::numeric_limits<Real>::max() : Real(0);
    }

private:
    char text[decidingDigits + 16];
    std::size_t length = 0;
    std::int64_t leftOut = 0;
    bool hasMore = false;
};

template <typename Real>
Real MantissaValue(std::uint64_t mantissa, std::int64_t exponent)
{
    char text[48];
    char* end = std::to_chars(text, text + 24, mantissa).ptr;
    const bool isHuge = exponent > 0;
    *end++ = 'e';
    end = std::to_chars(end, text + sizeof text, std::clamp(exponent, -exponentBound, exponentBound)).ptr;
    Real value = 0;
    const auto result = std::from_chars(text, end, value);
    if (result.ec == std::errc() && value <= std::numeric_limits<Real>::max()) {
        return value;
    }
    return isHuge && mantissa != 0 ? std::numeric_limits<Real>::max() : Real(0);
}

template <typename Real>
Real LongValue(std::string_view text, std::int64_t shift)
{
    DigitText digits;
    bool isNegative = false;
    bool isLeading = true;
    bool hasDigits = false;
    bool afterPoint = false;
    for (const char c : text) {
        if (IsDigit(c)) {
            digits.AddDigit(c);
            shift -= afterPoint ? 1 : 0;
            isLeading = false;
            hasDigits = true;
        } else if (c == '.') {
            afterPoint = true;
            isLeading = false;
        } else if (isLeading && c == '-') {
            isNegative = true;
        }
    }
    const Real value = digits.Value<Real>(shift);
    return isNegative && hasDigits ? -value : value;
}

} // namespace

std::size_t ScanDecimalSlow(std::string_view text, DecimalScan& scan)
{
    scan = DecimalScan();
    const std::size_t size = text.size();
    std::size_t at = 0;
    while (at < size && (text[at] == '-' || text[at] == '+')) {
        scan.isNegative = scan.isNegative || text[at] == '-';
        ++at;
    }
    scan.hasOddSigns = at > 1;
    const std::size_t start = at;
    bool hasInnerSign = false;
    std::size_t significant = 0;
    std::size_t decimals = 0;
    for (; at < size; ++at) {
        const char c = text[at];
        if (IsDigit(c)) {
            scan.hasDigits = true;
            significant += significant != 0 || c != '0' ? 1 : 0;
            decimals += scan.isInteger ? 0 : 1;
            if (significant <= 19) {
                scan.mantissa = scan.mantissa * 10 + static_cast<unsigned>(c - '0');
            }
        } else if (c == '.' && scan.isInteger) {
            scan.isInteger = false;
        } else if (c == '-' && at != start) {
            hasInnerSign = true;
        } else {
            break;
        }
    }
    scan.hasOddSigns = scan.hasOddSigns || hasInnerSign;
    scan.isNegative = scan.isNegative && scan.hasDigits;
    // The digits are exact whatever signs stand between them; only their number counts.
    scan.isExact = significant <= 19 && decimals <= static_cast<std::size_t>(exponentBound);
    scan.exponent = scan.isExact ? -static_cast<std::int32_t>(decimals) : 0;
    return at;
}

double DecimalToDoubleSlow(std::uint64_t mantissa, std::int64_t exponent)
{
    return MantissaValue<double>(mantissa, exponent);
}

float DecimalToFloat(std::uint64_t mantissa, std::int64_t exponent, bool isNegative)
{
    static constexpr float powers[] = {1e0F, 1e1F, 1e2F, 1e3F, 1e4F, 1e5F, 1e6F, 1e7F, 1e8F, 1e9F, 1e10F};
    float value;
    if (mantissa <= (std::uint64_t{1} << 24) && exponent >= -10 && exponent <= 10) {
        const float whole = static_cast<float>(mantissa);
        value = exponent < 0 ? whole / powers[-exponent] : whole * powers[exponent];
    } else {
        value = MantissaValue<float>(mantissa, exponent);
    }
    return isNegative ? -value : value;
}

double LongDecimalToDouble(std::string_view text, std::int64_t decimalShift)
{
    return LongValue<double>(text, decimalShift);
}

float LongDecimalToFloat(std::string_view text, std::int64_t decimalShift)
{
    return LongValue<float>(text, decimalShift);
}

} // namespace OrvPdf
