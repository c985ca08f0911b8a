#include "pdf/reader/document/open_file.h"

#include "pdf/reader/document/pdf_document_source.h"
#include "pdf/reader/file/source_file.h"

namespace OrvPdf
{

std::shared_ptr<const OrvDoc::Detail::DocumentSource> OpenFile(const boost::filesystem::path& file,
                                                               const OrvDoc::ReadOptions& options)
{
    return std::make_shared<PdfDocumentSource>(SourceFile::Open(file, options));
}

} // namespace OrvPdf
