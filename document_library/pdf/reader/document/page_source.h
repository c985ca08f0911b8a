#pragma once

#include <cstdint>
#include <memory>

#include "orv_doc/document_source.h"
#include "pdf/reader/content/content_interpreter.h"
#include "pdf/reader/document/page_content_data.h"
#include "pdf/reader/document/page_tree.h"
#include "pdf/reader/resources/document_resources.h"

namespace OrvPdf
{

/// A page of a PDF file.
class PdfPageSource : public OrvDoc::Detail::PageSource
{
public:
    /// The index is counted from zero.
    PdfPageSource(std::shared_ptr<const SourceFile> givenFile,
                  std::shared_ptr<DocumentResources> givenDocument, PageEntry givenEntry,
                  std::uint64_t givenIndex);

    std::array<Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>, 5> ReadBoxes() const override;
    void Interpret(OrvDoc::PageContent& content) const override;

    /// Where the page stands in its file, for who opens that again.
    const PageLocator& GetLocator() const { return entry.locator; }
    const SourceFile& GetFile() const { return *file; }

    /// The content stream as `Interpret` saw it; the ranges of `GetInterpretation` count in its bytes.
    /// Decoded anew at each call.
    PageContentData ReadContent() const { return ReadPageContent(*file, entry.dictionary); }

    // The rest is set by `Interpret`, and must not be asked for before.

    const Interpretation& GetInterpretation() const { return interpretation; }
    /// Whether the content's streams could not be read as they should: the file's own are not fit to be kept.
    bool HasDamagedStreams() const { return hasDamagedStreams; }
    /// The content's revision when it came out of the file: as long as it has this one, nobody changed it.
    std::uint64_t GetBaseRevision() const { return baseRevision; }

private:
    void InterpretInto(OrvDoc::PageContent& content, ErrorList& errors) const;

    std::shared_ptr<const SourceFile> file;
    std::shared_ptr<DocumentResources> document;
    PageEntry entry;
    std::uint64_t index;
    mutable Interpretation interpretation;
    mutable bool hasDamagedStreams = false;
    mutable std::uint64_t baseRevision = 0;
};

} // namespace OrvPdf
