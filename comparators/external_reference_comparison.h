#pragma once

#include <boost/filesystem/path.hpp>
#include <boost/optional.hpp>

#include <cstddef>
#include <utility>

namespace OrvDoc
{
class Document;
}

namespace HarrowSupport::Comparators
{

/// File and page that a form stands for.
using ExternalReference = boost::optional<std::pair<boost::filesystem::path, std::size_t>>;

/// Whether two forms stand for the same: both for nothing, or for the same page of the same path. A file that
/// lies in the same place relative to its document on both sides is the same as well, so that documents that
/// were moved together with their files are equal; on this road the page does not count. Where the place
/// relative to the document can't be told, the two differ.
bool CompareExternalReferences(const OrvDoc::Document& leftDocument, const OrvDoc::Document& rightDocument,
                               const ExternalReference& left, const ExternalReference& right);

} // namespace HarrowSupport::Comparators
