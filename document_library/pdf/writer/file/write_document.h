#pragma once

#include <boost/filesystem/path.hpp>

#include <orv_doc/write_options.h>

namespace OrvDoc
{
class Document;
}

namespace OrvPdf
{

/// Writes a document to a file: aside, flushed to the disk, then renamed. Sets the active errors of origin
/// `Writing` of the document and of its contents. Throws `std::runtime_error` with the file's name and the
/// reason; whatever stood at that place is then untouched.
void SaveDocument(OrvDoc::Document& document, const boost::filesystem::path& file,
                  const OrvDoc::WriteOptions& options);

/// The same without a file: everything is made, and dropped.
void FlushDocument(OrvDoc::Document& document);

} // namespace OrvPdf
