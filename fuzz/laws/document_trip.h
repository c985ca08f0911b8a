#pragma once

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>

#include <memory>
#include <string>

namespace HarrowSupport::Fuzzing
{

/// The document of a file; null if it can't be read. Ends the program where the exception says less than the
/// file and what is wrong with it.
std::unique_ptr<OrvDoc::Document> Open(const std::string& file, const OrvDoc::ReadOptions& limits);

/// Saves to a file of the scratch folder and reads that one; null if it can't be written. Ends the program
/// where the exception does not name the file or leaves one, and where a written file can't be read.
std::unique_ptr<OrvDoc::Document> SaveAndRead(OrvDoc::Document& document, const char* name);

} // namespace HarrowSupport::Fuzzing
