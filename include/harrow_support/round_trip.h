#pragma once

#include <harrow_support/export.h>

#include <memory>

#include <boost/utility/string_view.hpp>

#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

namespace OrvDoc
{
class Document;
}

namespace HarrowSupport
{

/// Takes a document through a file: writes it to a new file in the temporary directory, destroys it, and puts
/// the document that is read from that file in its place. Both never exist side by side, and every pointer
/// into the old one is dead afterwards.
///
/// The file is called "Harrow-", then the name as it is given, then a random part and ".pdf"; a `%` in the
/// name becomes a random digit, and a separator leads into a folder, which must exist. The file belongs to
/// the new document and goes with it: it is deleted when the last copy of the property
/// "Harrow.RoundTripTester.RemoveTempFile" is destroyed, and if that fails nobody is told.
///
/// Nothing is caught. `boost::filesystem::filesystem_error` about the temporary directory, and whatever
/// `OrvDoc::Document::Save` throws, leave the document as it is. When `OrvDoc::Document::Create` throws, the
/// pointer is empty and the file stays; when memory runs out after that, the new document is there and the
/// file stays.
///
/// @param document the document to save, not empty; then the one read back
/// @param name part of the file's name, not checked, cut or escaped
/// @param writeOptions handed to `OrvDoc::Document::Save`
/// @param readOptions handed to `OrvDoc::Document::Create`
HARROW_EXPORT void SaveAndReopen(std::unique_ptr<OrvDoc::Document>& document, boost::string_view name,
                                 const OrvDoc::WriteOptions& writeOptions,
                                 const OrvDoc::ReadOptions& readOptions);

} // namespace HarrowSupport
