#pragma once

#include <memory>
#include <string>
#include <vector>

#include <boost/filesystem/path.hpp>

class QPDF;

namespace OrvDoc
{
class Document;
class PageContent;
} // namespace OrvDoc

namespace OrvPdf
{

/// A document as objects of a file, ready to be written.
struct DocumentAssembly
{
    std::unique_ptr<QPDF> file;
    /// The lowest version of PDF that knows all that the file uses.
    std::string version;
    /// Texts of the active errors of the document.
    std::vector<std::string> errors;
    /// The same for each page's content, in order of the pages.
    std::vector<std::vector<std::string>> contentErrors;
};

/// Makes the objects. `folder` is where the file will stand; empty if it will nowhere. The document's own
/// file, if it has one, is opened a second time for it and stays as it is. All contents are read, so that the
/// result doesn't depend on who looked at which page before. Throws what the PDF library throws for a file
/// that has become unreadable, and `std::bad_alloc`.
DocumentAssembly AssembleDocument(const OrvDoc::Document& document, const boost::filesystem::path& folder);

} // namespace OrvPdf
