#pragma once

#include <string>
#include <string_view>

namespace OrvPdf
{

/// Numbers of PDF syntax (ISO 32000-1, 7.3.3) to binary and back without loss.
///
/// A length in points becomes a length in milli-points by a decimal shift of three: the point of the text
/// moves three places to the right before the one rounding to binary takes place, so `12.345` is exactly
/// 12345. Multiplying the parsed number by 1000 would round twice. Nothing here knows a locale.
///
/// Beyond the standard's syntax, what real files hold is read:
/// - more than one leading sign, negative if a `-` is among them: `--5` is -5;
/// - a `-` after the first digit or point counts for nothing: `5-3` is 53;
/// - a text of signs and at most one point without any digit is 0: `-`, `.`.
/// An exponent is no part of a number, nor is a second point.

struct ParsedNumber
{
    double value = 0;

    /// The text has no point.
    bool isInteger = false;
};

/// Sets `value` to the double that is nearest to the text's number times ten to the power of `decimalShift`,
/// ties to even. Numbers beyond the range of a double become the largest finite one of that sign; `-0` is
/// negative zero. False, with `value` untouched, if the whole text is not one number.
bool ParseNumber(std::string_view text, int decimalShift, double& value);
bool ParseNumber(std::string_view text, int decimalShift, ParsedNumber& number);

/// As ParseNumber without a shift, rounded to float at once and not by way of double.
bool ParseFloat(std::string_view text, float& value);

/// Appends the shortest decimal that `ParseNumber(text, decimalShift, ...)` reads back as the same double,
/// bit by bit: no exponent, no point at the end (but `.0` behind more than 18 digits, which is more than an
/// integer of 64 bits holds), a zero in front of a leading point, `-0` for negative zero. The length is below
/// 350 for shifts of up to three. Throws std::invalid_argument for infinities and what is not a number.
void AppendNumber(std::string& out, double value, int decimalShift);

/// As AppendNumber without a shift, with the fewest digits that ParseFloat needs.
void AppendFloat(std::string& out, float value);

} // namespace OrvPdf
