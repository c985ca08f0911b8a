#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Vantry
{

/// Where a URI reference points, in normalised pieces: two references to one place have equal pieces.
struct URILocation
{
    /// In lower case; empty for a reference without a scheme.
    std::string scheme;
    bool hasAuthority = false;
    /// Host in lower case. Empty for files on this machine, also where the URI says "localhost".
    std::string authority;
    /// "C:" in upper case, for a file on a drive.
    std::string drive;
    /// The path starts at the root. A path of another kind is relative to something, or opaque as in
    /// "mailto:".
    bool isRooted = false;
    /// What stands between the separators, dot segments resolved. The last one is the name; it is empty
    /// behind a closing separator. Never empty itself. Only paths without a root may start with "..".
    std::vector<std::string> segments;
    /// Query and fragment with their delimiters, as they stand.
    std::string suffix;

    bool IsOpaque() const { return !scheme.empty() && !isRooted; }
};

/// The location that @p text names by itself.
/// @throws URIException if it is not a URI reference
URILocation ReadURILocation(std::string_view text);

/// The location that @p text names in a document at @p base (RFC 3986, 5.2). Without a scheme in the base,
/// the result is relative to the same thing as the base.
/// @throws URIException if either is not a URI reference, or the way from one to the other is not known
URILocation ResolveURILocation(std::string_view text, std::string_view base);

/// The URI reference that names @p location.
std::string WriteURILocation(const URILocation& location);

} // namespace Vantry
