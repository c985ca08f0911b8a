#include <vantry/uri_location.h>

#include <utility>

#include <vantry/file_uri.h>
#include <vantry/percent_encoding.h>
#include <vantry/uri_exception.h>
#include <vantry/uri_parts.h>

namespace Vantry
{

namespace
{

URIParts Split(std::string_view text)
{
    URIParts parts;
    if (text.empty())
        throw URIException("The empty text is not a URI.");
    if (!SplitURI(text, parts)) {
        throw URIException(
            "'" + MakeUTF8(text) +
            "' is not a URI: it has characters, or characters in places, that RFC 3986 does not allow.");
    }
    return parts;
}

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower)
        character = ToLowerASCII(character);
    return lower;
}

std::string NormalizeHost(std::string_view host)
{
    // Lowered before, since the digits of encoded bytes come out in upper case.
    return NormalizePercentEncoding(Lower(host), IsUnreserved);
}

std::string NormalizeAuthority(const URIParts& parts, bool isFile)
{
    std::string authority;
    if (!parts.userInfo.empty())
        authority = NormalizePercentEncoding(parts.userInfo, IsUnreserved) + '@';
    authority += NormalizeHost(parts.host);
    if (!parts.port.empty())
        authority += ':' + std::string(parts.port);
    return isFile && authority == "localhost" ? std::string() : authority;
}

std::vector<std::string_view> SplitPath(std::string_view path)
{
    std::vector<std::string_view> segments;
    for (;;) {
        const std::size_t end = path.find('/');
        segments.push_back(path.substr(0, end));
        if (end == std::string_view::npos)
            return segments;
        path.remove_prefix(end + 1);
    }
}

// Adds raw segments to those that stand in the location and resolves the dot segments. For files, empty
// segments between separators mean nothing, and no character but the separator has a meaning of its own, so
// more may be plain.
void AddSegments(URILocation& location, const std::vector<std::string_view>& added, bool isFile)
{
    std::vector<std::string>& segments = location.segments;
    for (std::size_t index = 0; index < added.size(); ++index) {
        const bool isLast = index + 1 == added.size();
        std::string segment =
            NormalizePercentEncoding(added[index], isFile ? IsSegmentCharacter : IsUnreserved);
        const bool isUp = segment == "..";
        if (isUp && !segments.empty() && segments.back() != "..")
            segments.pop_back();
        else if (isUp && !location.isRooted)
            segments.push_back("..");
        const bool isNothing = isUp || segment == "." || (segment.empty() && isFile);
        if (!isNothing)
            segments.push_back(std::move(segment));
        else if (isLast)
            segments.emplace_back();
    }
}

// RFC 8089, E.3.2: "file:////host/share" is another spelling of "file://host/share". In the path, the
// delimiters of an authority are letters like others.
std::string TakeHostOfPath(std::string_view& path)
{
    if (path.size() < 3 || path.substr(0, 2) != "//" || path[2] == '/')
        return {};
    const std::size_t end = path.find('/', 2);
    const std::string_view host = path.substr(2, end == std::string_view::npos ? end : end - 2);
    path.remove_prefix(2 + host.size());
    const auto staysPlain = [](char character) { return character != ':' && character != '@'; };
    const std::string normalized = NormalizeHost(PercentEncode(host, staysPlain));
    return normalized == "localhost" ? std::string() : normalized;
}

std::string ReadSuffix(const URIParts& parts)
{
    std::string suffix;
    if (parts.hasQuery)
        suffix += '?' + std::string(parts.query);
    if (parts.hasFragment)
        suffix += '#' + std::string(parts.fragment);
    return suffix;
}

// A path from the root. The location has its scheme and authority.
void ReadRootedPath(URILocation& location, std::string_view path)
{
    const bool isFile = location.scheme.empty() || location.scheme == "file";
    location.isRooted = true;
    if (location.scheme == "file" && location.authority.empty()) {
        location.authority = TakeHostOfPath(path);
        if (location.authority.empty() && !path.empty() && StartsWithDrive(path.substr(1))) {
            location.drive = {ToUpperASCII(path[1]), ':'};
            path.remove_prefix(3);
        }
    }
    if (!path.empty() && path.front() == '/')
        path.remove_prefix(1);
    AddSegments(location, SplitPath(path), isFile);
    if (location.segments.empty())
        location.segments.emplace_back();
}

URILocation ReadLocation(const URIParts& parts)
{
    URILocation location;
    location.scheme = Lower(parts.scheme);
    const bool isFile = location.scheme.empty() || location.scheme == "file";
    location.hasAuthority = parts.hasAuthority;
    location.authority = NormalizeAuthority(parts, isFile);
    location.suffix = ReadSuffix(parts);
    if (parts.hasAuthority || (!parts.path.empty() && parts.path.front() == '/')) {
        ReadRootedPath(location, parts.path);
        return location;
    }
    if (location.IsOpaque())
        location.segments.emplace_back(parts.path);
    else
        AddSegments(location, SplitPath(parts.path), true);
    return location;
}

} // namespace

URILocation ReadURILocation(std::string_view text)
{
    return ReadLocation(Split(text));
}

URILocation ResolveURILocation(std::string_view text, std::string_view base)
{
    const URIParts parts = Split(text);
    URILocation location = ReadLocation(parts);
    const URILocation baseLocation = ReadURILocation(base);
    const bool isBaseRelative = baseLocation.scheme.empty() && !baseLocation.isRooted;
    const bool isWhole = parts.hasScheme || location.isRooted;
    if ((isWhole && isBaseRelative) || (parts.hasScheme && baseLocation.scheme.empty())) {
        throw URIException("The way from " + Quote(base) + " to " + Quote(text) +
                           " is not known: the former is relative, the latter is not.");
    }
    if (parts.hasScheme)
        return location;
    if (baseLocation.IsOpaque()) {
        throw URIException(Quote(text) + " has no meaning in " + Quote(base) + ": the latter has no path.");
    }

    URILocation resolved;
    resolved.scheme = baseLocation.scheme;
    resolved.suffix = location.suffix;
    if (parts.hasAuthority) {
        resolved.hasAuthority = true;
        resolved.authority = location.authority;
        ReadRootedPath(resolved, parts.path);
        return resolved;
    }
    resolved.hasAuthority = baseLocation.hasAuthority;
    resolved.authority = baseLocation.authority;
    if (location.isRooted) {
        ReadRootedPath(resolved, parts.path);
        return resolved;
    }
    resolved.drive = baseLocation.drive;
    resolved.isRooted = baseLocation.isRooted;
    resolved.segments = baseLocation.segments;
    if (!parts.path.empty()) {
        resolved.segments.pop_back();
        const bool isFile = resolved.scheme.empty() || resolved.scheme == "file";
        AddSegments(resolved, SplitPath(parts.path), isFile);
    }
    return resolved;
}

std::string WriteURILocation(const URILocation& location)
{
    const bool isFile = location.scheme == "file";
    std::string text;
    if (!location.scheme.empty())
        text = location.scheme + ':';
    if (isFile || location.hasAuthority)
        text += "//" + location.authority;
    if (!location.drive.empty())
        text += '/' + location.drive;
    else if (!location.scheme.empty() && !isFile && !location.hasAuthority && location.isRooted &&
             location.segments.size() > 1 && location.segments.front().empty())
        text += "/."; // or the first separators would start an authority
    if (location.isRooted)
        text += '/';
    for (std::size_t index = 0; index < location.segments.size(); ++index) {
        std::string segment = location.segments[index];
        if (index > 0)
            text += '/';
        // A folder that looks like a drive is told from one by its colon.
        const bool mayBeDrive = isFile && index == 0 && location.drive.empty() && location.authority.empty();
        if (mayBeDrive && StartsWithDrive(segment))
            segment.replace(1, 1, "%3A");
        text += segment;
    }
    return text + location.suffix;
}

} // namespace Vantry
