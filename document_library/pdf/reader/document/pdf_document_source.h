#pragma once

#include <memory>
#include <vector>

#include <boost/optional.hpp>

#include "orv_doc/document_source.h"
#include "pdf/reader/document/error_list.h"
#include "pdf/reader/file/source_file.h"
#include "pdf/reader/resources/document_resources.h"

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
    /// Walks the resources of all pages the first time that it is called.
    std::vector<OrvDoc::Separation::Entry> ReadSeparations() const override;

    const std::shared_ptr<OrvDoc::Detail::LateErrors>& GetLateErrors() const override
    {
        return file->GetLateErrors();
    }

    const SourceFile& GetFile() const { return *file; }

private:
    std::shared_ptr<const SourceFile> file;
    std::shared_ptr<DocumentResources> resources;
    /// Guarded by the access to the file.
    mutable boost::optional<std::vector<OrvDoc::Separation::Entry>> knownSeparations;
    mutable std::uint64_t structureErrors = 0;
};

} // namespace OrvPdf
