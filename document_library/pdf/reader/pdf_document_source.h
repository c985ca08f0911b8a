#pragma once

#include <memory>
#include <vector>

#include "orv_doc/document_source.h"
#include "pdf/reader/document_resources.h"
#include "pdf/reader/error_list.h"
#include "pdf/reader/source_file.h"

namespace OrvPdf
{

/// A PDF file that a document was read from.
class PdfDocumentSource : public OrvDoc::Detail::DocumentSource
{
public:
    /// Throws `std::runtime_error` with the file's name if it has no catalogue or no pages.
    explicit PdfDocumentSource(std::shared_ptr<const SourceFile> givenFile);

    void ReadStructure(OrvDoc::Document& document) const override;
    OrvDoc::Detail::PageTree ReadPageTree() const override;
    std::vector<OrvDoc::Separation::Entry> ReadSeparations() const override;

    const SourceFile& GetFile() const { return *file; }

private:
    std::shared_ptr<const SourceFile> file;
    std::shared_ptr<DocumentResources> resources;
};

} // namespace OrvPdf
