#include <vantry/file_uri.h>

#include <algorithm>

namespace Vantry
{

bool StartsWithDrive(std::string_view path)
{
    if (path.size() < 2 || path[1] != ':')
        return false;
    const char letter = ToLowerASCII(path[0]);
    return letter >= 'a' && letter <= 'z' && (path.size() == 2 || path[2] == '/');
}

bool IsFileScheme(std::string_view scheme)
{
    constexpr std::string_view file = "file";
    return std::equal(scheme.begin(), scheme.end(), file.begin(), file.end(),
                      [](char left, char right) { return ToLowerASCII(left) == right; });
}

char ToLowerASCII(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

char ToUpperASCII(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

} // namespace Vantry
