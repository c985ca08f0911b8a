#pragma once

#include <memory>

#include <boost/filesystem/path.hpp>

#include <orv_doc/read_options.h>

#include "orv_doc/document_source.h"

namespace OrvPdf
{

/// Opens a PDF file whose structure is then read on demand. The file's bytes are taken into memory, since a
/// file may be replaced or removed while its document lives. Throws `std::runtime_error` with the file's name
/// and the reason.
std::shared_ptr<const OrvDoc::Detail::DocumentSource> OpenFile(const boost::filesystem::path& file,
                                                               const OrvDoc::ReadOptions& options);

} // namespace OrvPdf
