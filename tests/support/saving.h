#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/document.h>

/// For tests of what becomes of files when writing fails.
namespace HarrowSupport::Testing
{

/// A document of one page with a picture of random samples: so many bytes, at least, has its file.
std::unique_ptr<OrvDoc::Document> DocumentOfBytes(std::size_t bytes);

void Save(OrvDoc::Document& document, const std::string& file);

/// The bytes of the document's file, saved to a folder of its own.
std::string SavedBytes(OrvDoc::Document& document);

/// The names of all files in a folder, in order.
std::vector<std::string> NamesIn(const std::string& folder);

/// Does something that may throw, and tells what then stands in the folder of a file:
///
///     WHAT file; OTHERS; ERROR
///
/// WHAT is `old`, `new` or `no`, or `other` for other bytes or no file; OTHERS is `nothing else` or the names
/// of what else there is; ERROR is the text of what was thrown, or `no error`. The name of the file's folder
/// is left out of it.
std::string OutcomeOf(const std::function<void()>& action, const std::string& file,
                      const std::string& oldBytes, const std::string& newBytes);

} // namespace HarrowSupport::Testing
