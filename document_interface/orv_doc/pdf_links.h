#pragma once

#include <map>
#include <string>
#include <vector>

#include <boost/filesystem/path.hpp>

#include <orv_sys/export.h>

namespace OrvDoc
{

class Document;

/// A file specification of the document's file whose target is named by a key until somebody tells the file.
/// The catalogue lists them under `OrvLinks`, a dictionary from key to file specification.
struct NormalizedPDFLink
{
    std::string key;
    /// Object number of the file specification.
    int sourceObject = 0;
    /// The file that the key was resolved to; empty until then.
    boost::filesystem::path file;
};

/// Points the document's normalized links to other PDF files at the files that the map gives for their keys.
/// Links whose key the map doesn't have, or has an empty path for, stay as they are. Returns the keys of the
/// links that have no file then, in order of the links, and clears the document's flag `NormalizedPDFLinks`
/// if there are none.
ORV_EXPORT std::vector<std::string>
ResolveNormalizedPDFLinks(Document& document, const std::map<std::string, boost::filesystem::path>& files);

} // namespace OrvDoc
