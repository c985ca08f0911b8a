#pragma once

#include <string>

#include <boost/filesystem/path.hpp>
#include <boost/network/uri.hpp>

#include <orv_sys/export.h>

/// File paths as URIs and as text. Nothing here looks at the file system: links are not followed, the current
/// directory plays no part, and a file need not exist. All functions are linear in their input and may be
/// called from any thread.
namespace Vantry
{

/// The URI of a file path (RFC 3986, RFC 8089).
///
/// | path | URI |
/// |---|---|
/// | `/in/a b.pdf` | `file:///in/a%20b.pdf` |
/// | `C:/in/a.pdf` | `file:///C:/in/a.pdf` |
/// | `//host/share/a.pdf` | `file://host/share/a.pdf` |
/// | `in/a.pdf`, `../a.pdf` | `in/a.pdf`, `../a.pdf`: a relative reference without a scheme |
///
/// A relative path stays relative because only its user knows what it is relative to: the path of a linked
/// file is meant relative to the document that links it, and MakeRelativeURI reads it so. A drive letter with
/// a separator behind it starts an absolute path on every system, so that a path means the same wherever the
/// document is read. Separators and dot segments stand as they are in the path.
///
/// Each byte of the UTF-8 text that RFC 3986 does not allow in a path segment is percent-encoded. Bytes that
/// are not UTF-8 are encoded in the same way, one by one, so every name that a file system can hold has a URI
/// of its own.
///
/// @throws URIException for an empty path and for one with a zero byte.
ORV_EXPORT boost::network::uri::uri ToURI(const boost::filesystem::path& path);

/// @p target as seen from the document at @p base: the shortest reference that RFC 3986, 5.2 resolves against
/// @p base to the place of @p target.
///
/// A target without a scheme is taken as relative to @p base already and only brought to the same shape, so
/// that `b.pdf`, `./b.pdf` and `file:///in/b.pdf` give the same text `b.pdf` from the base
/// `file:///in/a.pdf`.
///
/// - The result is normalised: dot segments are resolved, percent-encoding is written in one way, and
/// repeated
///   separators of file paths count once. Equal places give equal texts. Letter case counts, but for schemes,
///   hosts and drive letters.
/// - The base is a file: what stands behind its last separator does not count. A target that is the base
/// itself
///   gives the file name.
/// - No relative reference leads to another scheme, host or drive. Such a target is returned whole.
/// - Query and fragment of the target are kept, those of the base do not count.
///
/// @throws URIException if either text is not a URI, and if the target is absolute and the base relative,
/// since then the way from one to the other is not known.
ORV_EXPORT boost::network::uri::uri MakeRelativeURI(const boost::network::uri::uri& target,
                                                    const boost::network::uri::uri& base);

/// A URI as a person would write it, as UTF-8 text: for a file or a relative reference its path, in the form
/// that ToURI takes; for any other the URI itself, decoded where that leaves its meaning clear.
///
/// For each path that ToURI takes, `GetDisplayPath(ToURI(path)) == ToUTF8String(path)`. Percent-encoded bytes
/// that do not decode to UTF-8 stay encoded, as do an encoded zero byte, an encoded separator, and, outside
/// of files, encoded delimiters and control characters. A text that is not a URI is given back with nothing
/// decoded. Throws nothing of its own.
ORV_EXPORT std::string GetDisplayPath(const boost::network::uri::uri& uri);

/// A path as UTF-8 text. The text is always valid UTF-8: a byte that is not is shown percent-encoded, so two
/// different names do not look the same.
ORV_EXPORT std::string ToUTF8String(const boost::filesystem::path& path);

} // namespace Vantry
