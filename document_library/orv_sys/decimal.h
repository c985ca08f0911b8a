#pragma once

#include <string>
#include <string_view>

namespace OrvSys::Detail
{

/// Whether the text is an optional sign and at least one digit, with at most one point before, among or
/// behind the digits: a PDF number (ISO 32000-1, 7.3.3).
bool IsDecimal(std::string_view text);

/// The one form of all decimals of the same value: no plus sign, no needless zero or point, no minus zero.
std::string NormalizeDecimal(std::string_view text);

/// The nearest double. Beyond the range of double the largest finite one of that sign.
double ParseDecimal(std::string_view text);

/// The shortest decimal without an exponent that reads back as `value`, which must be finite.
std::string FormatDecimal(double value);

} // namespace OrvSys::Detail
