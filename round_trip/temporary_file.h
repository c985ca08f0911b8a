#pragma once

#include <string>

#include <boost/filesystem/path.hpp>

namespace OrvDoc
{
class Document;
}

namespace HarrowSupport
{

/// A path in the temporary directory, by a model of the file's name in which each `%` becomes a random
/// hexadecimal digit. Nothing is created, and nobody looks whether the name is free.
///
/// @throws boost::filesystem::filesystem_error if there is no temporary directory
boost::filesystem::path MakeTemporaryPath(const std::string& model);

/// Ties a file to a document: it is deleted with the last copy of the document's property `RemoveFileKey`.
/// When this throws, for want of memory, no document owns the file and it stays on disk.
void GiveFileToDocument(boost::filesystem::path path, OrvDoc::Document& document);

} // namespace HarrowSupport
