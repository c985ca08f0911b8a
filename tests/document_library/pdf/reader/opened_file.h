#pragma once

#include <memory>
#include <string>
#include <vector>

#include <qpdf/QPDF.hh>

#include <orv_doc/document.h>
#include <orv_doc/errors.h>

#include "pdf/reader/file/source_file.h"
#include "support/error_texts.h"
#include "support/temporary_folder.h"

namespace ReaderTests
{

/// A file of the given bytes, opened.
class OpenedFile
{
public:
    explicit OpenedFile(const std::string& bytes, const OrvDoc::ReadOptions& options = {})
        : path(folder.Write("file.pdf", bytes)), file(OrvPdf::SourceFile::Open(path, options)), access(*file)
    {}

    const std::shared_ptr<const OrvPdf::SourceFile>& Get() const { return file; }
    QPDF& GetQpdf() const { return access.GetQpdf(); }
    QPDFObjectHandle GetCatalogue() const { return GetQpdf().getRoot(); }
    QPDFObjectHandle GetObject(int number) const { return GetQpdf().getObject(number, 0); }

private:
    HarrowSupport::Testing::TemporaryFolder folder;
    std::string path;
    std::shared_ptr<const OrvPdf::SourceFile> file;
    OrvPdf::SourceFile::Access access;
};

/// A document of a file of the given bytes.
inline std::unique_ptr<OrvDoc::Document> ReadBytes(const std::string& bytes,
                                                   const OrvDoc::ReadOptions& options = {})
{
    const HarrowSupport::Testing::TemporaryFolder folder;
    return OrvDoc::Document::Create(folder.Write("file.pdf", bytes), options);
}

using HarrowSupport::Testing::TextsOf;

} // namespace ReaderTests
