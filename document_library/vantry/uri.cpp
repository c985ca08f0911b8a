#include <vantry/uri.h>

#include <algorithm>
#include <string_view>

#include <vantry/file_uri.h>
#include <vantry/percent_encoding.h>
#include <vantry/uri_exception.h>
#include <vantry/uri_parts.h>

namespace Vantry
{

namespace
{

bool StaysPlainInHost(char character)
{
    return IsUnreserved(character) || IsSubDelimiter(character);
}

bool StaysPlainInPath(char character)
{
    return IsSegmentCharacter(character) || character == '/';
}

bool StaysPlainInFirstSegment(char character)
{
    return StaysPlainInPath(character) && character != ':';
}

// A plain separator would split the name it stands in, and a zero byte would end the text for many a reader.
bool MayDecodeInFile(char character)
{
    return character != '/' && character != '\0';
}

bool MayDecodeElsewhere(char character)
{
    constexpr std::string_view generalDelimiters = ":/?#[]@";
    const bool isControl = static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
    return !isControl && character != '%' && !IsSubDelimiter(character) &&
           generalDelimiters.find(character) == std::string_view::npos;
}

std::string EncodePath(std::string_view path)
{
    return PercentEncode(path, StaysPlainInPath);
}

// "//host/share/a.pdf": two separators and a name.
bool StartsWithHost(std::string_view path)
{
    return path.size() > 2 && path[0] == '/' && path[1] == '/' && path[2] != '/';
}

std::string ToURIText(std::string_view path)
{
    if (StartsWithDrive(path))
        return "file:///" + std::string(path.substr(0, 2)) + EncodePath(path.substr(2));
    if (StartsWithHost(path)) {
        const std::size_t hostEnd = std::min(path.find('/', 2), path.size());
        return "file://" + PercentEncode(path.substr(2, hostEnd - 2), StaysPlainInHost) +
               EncodePath(path.substr(hostEnd));
    }
    if (path.front() == '/') {
        // A folder that looks like a drive is told from one by its colon.
        if (StartsWithDrive(path.substr(1)))
            return "file:///" + std::string(path.substr(1, 1)) + "%3A" + EncodePath(path.substr(3));
        return "file://" + EncodePath(path);
    }
    // What stands in front of a colon in the first segment would be a scheme.
    const std::size_t segmentEnd = std::min(path.find('/'), path.size());
    return PercentEncode(path.substr(0, segmentEnd), StaysPlainInFirstSegment) +
           EncodePath(path.substr(segmentEnd));
}

std::string DisplayFile(const URIParts& parts)
{
    std::string text;
    std::string_view path = parts.path;
    if (!parts.authority.empty())
        text = "//" + PercentDecode(parts.authority, MayDecodeInFile);
    else if (parts.hasScheme && path.substr(0, 1) == "/" && StartsWithDrive(path.substr(1)))
        path.remove_prefix(1);
    text += PercentDecode(path, MayDecodeInFile);
    if (parts.hasQuery)
        text += '?' + PercentDecode(parts.query, MayDecodeInFile);
    if (parts.hasFragment)
        text += '#' + PercentDecode(parts.fragment, MayDecodeInFile);
    return text;
}

} // namespace

boost::network::uri::uri ToURI(const boost::filesystem::path& path)
{
    const std::string text = path.generic_string();
    if (text.empty())
        throw URIException("No URI for a file path: the path is empty.");
    if (text.find('\0') != std::string::npos) {
        throw URIException("No URI for the file path " + Quote(text) +
                           ": it has a zero byte, which no file name can have.");
    }
    return boost::network::uri::uri(ToURIText(text));
}

std::string GetDisplayPath(const boost::network::uri::uri& uri)
{
    const std::string text = uri.string();
    URIParts parts;
    if (!SplitURI(text, parts))
        return MakeUTF8(text);
    if (!parts.hasScheme || IsFileScheme(parts.scheme))
        return DisplayFile(parts);
    return PercentDecode(text, MayDecodeElsewhere);
}

std::string ToUTF8String(const boost::filesystem::path& path)
{
    return MakeUTF8(path.generic_string());
}

} // namespace Vantry
