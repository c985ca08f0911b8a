#pragma once

#include <string_view>

namespace Vantry
{

/// What the URIs of files have of their own (RFC 8089).

/// @p path starts with a drive letter and a colon, with nothing or a separator behind: "C:", "C:/a".
bool StartsWithDrive(std::string_view path);

/// @p scheme is "file" in upper or lower case.
bool IsFileScheme(std::string_view scheme);

char ToLowerASCII(char character);
char ToUpperASCII(char character);

} // namespace Vantry
