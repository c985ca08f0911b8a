#include <vantry/uri.h>

#include <cstddef>

#include <vantry/uri_location.h>

namespace Vantry
{

namespace
{

bool HaveSameRoot(const URILocation& left, const URILocation& right)
{
    return left.scheme == right.scheme && left.authority == right.authority && left.drive == right.drive;
}

// A colon in the first name of a reference: what stands in front of it would be a scheme, and behind a way up
// to the root it would make a drive.
std::string EncodeColons(const std::string& segment)
{
    std::string encoded;
    for (const char character : segment) {
        if (character == ':')
            encoded += "%3A";
        else
            encoded += character;
    }
    return encoded;
}

// Up from the folder of the base to the folder that both share, and down from there.
std::string WriteWay(const URILocation& target, const URILocation& base)
{
    const std::size_t baseFolders = base.segments.size() - 1;
    const std::size_t targetFolders = target.segments.size() - 1;
    std::size_t shared = 0;
    while (shared < baseFolders && shared < targetFolders && base.segments[shared] == target.segments[shared])
        ++shared;

    std::string text;
    for (std::size_t index = shared; index < baseFolders; ++index)
        text += "../";
    // Nothing at the start would mean the base itself, or a path from the root.
    if (text.empty() && target.segments[shared].empty())
        text = "./";
    text += EncodeColons(target.segments[shared]);
    for (std::size_t index = shared + 1; index < target.segments.size(); ++index)
        text += '/' + target.segments[index];
    return text + target.suffix;
}

} // namespace

boost::network::uri::uri MakeRelativeURI(const boost::network::uri::uri& target,
                                         const boost::network::uri::uri& base)
{
    const std::string targetText = target.string();
    const std::string baseText = base.string();
    const URILocation targetLocation = ResolveURILocation(targetText, baseText);
    if (targetLocation.IsOpaque())
        return target;
    const URILocation baseLocation = ReadURILocation(baseText);
    if (!HaveSameRoot(targetLocation, baseLocation) || baseLocation.IsOpaque())
        return boost::network::uri::uri(WriteURILocation(targetLocation));
    return boost::network::uri::uri(WriteWay(targetLocation, baseLocation));
}

} // namespace Vantry
