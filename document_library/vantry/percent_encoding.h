#pragma once

#include <string>
#include <string_view>

namespace Vantry
{

/// Characters by their role in a URI (RFC 3986, 2.2, 2.3 and 3.3).
bool IsUnreserved(char character);
bool IsSubDelimiter(char character);
/// What may stand in a path segment as itself.
bool IsSegmentCharacter(char character);

/// Appends the byte as "%" and two upper-case digits.
void AppendEncoded(std::string& text, char byte);

/// The bytes of @p text, those encoded for which @p staysPlain says no.
std::string PercentEncode(std::string_view text, bool (*staysPlain)(char));

/// Decodes those bytes of percent-encoded text for which @p mayDecode says yes, and bytes outside ASCII where
/// they make up UTF-8. Whatever is not UTF-8, encoded or not, comes out encoded, so the result is always
/// UTF-8. A "%" without two digits behind it stands for itself.
std::string PercentDecode(std::string_view text, bool (*mayDecode)(char));

/// UTF-8 text in which the bytes that are not UTF-8 are percent-encoded, and all others stand as they are.
std::string MakeUTF8(std::string_view text);

/// The text in quotes for a message: as MakeUTF8, and control characters percent-encoded, so that it stays on
/// one line and no zero byte ends it.
std::string Quote(std::string_view text);

/// Percent-encoded text in the one spelling that RFC 3986, 6.2.2 prefers: upper-case digits, and in plain
/// those bytes for which @p isPlain says yes.
std::string NormalizePercentEncoding(std::string_view text, bool (*isPlain)(char));

} // namespace Vantry
