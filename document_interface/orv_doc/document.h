#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include <boost/filesystem/path.hpp>
#include <boost/iterator/indirect_iterator.hpp>
#include <boost/optional.hpp>

#include <orv_color/output_intent.h>
#include <orv_doc/document_info_flag_key.h>
#include <orv_doc/layers.h>
#include <orv_doc/page.h>
#include <orv_doc/pdf_links.h>
#include <orv_doc/read_options.h>
#include <orv_doc/separation.h>
#include <orv_doc/visitable.h>
#include <orv_doc/write_options.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

class Errors;
class Properties;
class ResourceManager;

namespace Detail
{
class DocumentSource;
}

/// A document: pages, layers, separations and output intent, read from a PDF file or made by a program. What
/// the model has no place for (annotations, outlines, metadata, structure, attachments, form fields) stays in
/// the file's own objects and is written back as it was.
///
/// Any number of threads may read one document through const operations.
class ORV_EXPORT Document : public Visitable
{
public:
    using ConstPageIterator =
        boost::iterators::indirect_iterator<std::vector<std::unique_ptr<Page>>::const_iterator, const Page>;
    using PageIterator =
        boost::iterators::indirect_iterator<std::vector<std::unique_ptr<Page>>::iterator, Page>;

    ~Document() override;

    /// Reads a PDF file. Its structure is read now, the content of a page when it is first asked for; the
    /// file itself isn't needed after the call. Throws `std::runtime_error` with the file's name and the
    /// reason: it can't be read, is no PDF file, has no page tree, or needs another password. A page tree in
    /// which no page can be found gives a document without pages, with an active error.
    static std::unique_ptr<Document> Create(const boost::filesystem::path& file, const ReadOptions& options);

    /// Writes the whole document. The file is written aside and renamed, so a file that stood there stays
    /// whole if this fails. Throws `std::runtime_error` with the file's name and the reason. What the file
    /// format can't say becomes an active error of the content or of the document.
    void Save(const boost::filesystem::path& file, const WriteOptions& options);
    /// Brings the document through the whole write path, with the same active errors as `Save`, and keeps
    /// nothing.
    void Flush();

    bool GetInfoFlag(DocumentInfoFlagKey key) const;
    Properties& GetProperties() { return *properties; }
    /// What the reader could not model or the writer cannot say, as far as it is in force now.
    Errors& GetActiveErrors();
    /// The file that the document was read from, as an absolute path; empty for a document that a program
    /// made.
    const boost::filesystem::path& GetFilePath() const { return filePath; }

    std::uint64_t GetNumberOfPages() const;
    ConstPageIterator GetPagesBegin() const;
    PageIterator GetPagesBegin();
    ConstPageIterator GetPagesEnd() const;

    /// Absent if the document has none. Of several, the one for print (`GTS_PDFX`), otherwise the first.
    const boost::optional<OrvColor::OutputIntent>& GetOutputIntent() const { return outputIntent; }
    /// The separations that the colour spaces of the document's pages name, in order of their first
    /// occurrence, or as they were set. Collected at the first call.
    const std::vector<Separation::Entry>& GetSeparationInfo() const;
    const Layers& GetLayers() const { return layers; }
    Layers& GetLayers() { return layers; }
    ResourceManager& GetResourceManager() const { return *resourceManager; }

    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    /// A document without pages.
    static std::unique_ptr<Document> CreateNew();
    /// Adds an empty page at the end.
    Page& AddPage(const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& mediaBox);
    /// Inserts an empty page before the one of that index; throws `std::out_of_range` past the number of
    /// pages.
    Page& InsertPage(std::uint64_t index,
                     const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& mediaBox);
    /// Destroys a page with its content; throws `std::out_of_range` if there is none of that index.
    void RemovePage(std::uint64_t index);
    void SetOutputIntent(boost::optional<OrvColor::OutputIntent> intent);
    void SetSeparationInfo(std::vector<Separation::Entry> entries);
    void SetInfoFlag(DocumentInfoFlagKey key, bool value);
    const Errors& GetActiveErrors() const;
    const std::vector<NormalizedPDFLink>& GetNormalizedPDFLinks() const { return normalizedLinks; }
    std::vector<NormalizedPDFLink>& GetNormalizedPDFLinks() { return normalizedLinks; }
    /// The file's own objects; null for a document that a program made.
    const std::shared_ptr<const Detail::DocumentSource>& GetSource() const { return source; }

protected:
    void PropagateVisitorSelf(ConstVisitorBase& visitor) const override;
    void PropagateVisitorSelf(VisitorBase& visitor) override;

private:
    struct Lazy;

    Document();

    /// Reads the page tree at the first call: opening a document costs no more than its structure.
    std::vector<std::unique_ptr<Page>>& LoadPages() const;
    void RenumberPages();

    boost::filesystem::path filePath;
    boost::optional<OrvColor::OutputIntent> outputIntent;
    std::unique_ptr<Lazy> lazy;
    std::unique_ptr<Properties> properties;
    std::unique_ptr<Errors> activeErrors;
    std::unique_ptr<ResourceManager> resourceManager;
    std::shared_ptr<const Detail::DocumentSource> source;
    std::uint32_t infoFlags = 0;
    std::vector<NormalizedPDFLink> normalizedLinks;
    Layers layers;
};

} // namespace OrvDoc
