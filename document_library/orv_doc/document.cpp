#include <orv_doc/document.h>

#include <cstddef>
#include <iterator>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include <boost/filesystem/operations.hpp>

#include <orv_doc/errors.h>
#include <orv_doc/properties.h>
#include <orv_doc/resource_manager.h>
#include <orv_doc/visitor.h>

#include "orv_doc/document_source.h"
#include "pdf/reader/document/open_file.h"
#include "pdf/writer/file/write_document.h"

namespace OrvDoc
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

namespace
{

std::uint32_t GetBit(DocumentInfoFlagKey key)
{
    return std::uint32_t{1} << static_cast<unsigned>(key);
}

[[noreturn]] void ThrowNoPage(std::uint64_t index, std::size_t count)
{
    throw std::out_of_range("There is no place for page index " + std::to_string(index) +
                            " in a document of " + std::to_string(count) + " pages.");
}

} // namespace

/// What is read when it is first asked for.
struct Document::Lazy
{
    std::once_flag pagesOnce;
    std::vector<std::unique_ptr<Page>> pages;
    std::once_flag separationsOnce;
    std::vector<Separation::Entry> separations;
};

Document::Document()
    : lazy(std::make_unique<Lazy>()),
      properties(std::make_unique<Properties>()),
      activeErrors(std::make_unique<Errors>()),
      resourceManager(std::make_unique<ResourceManager>()),
      layers(*this)
{}

Document::~Document()
{
    // A value that a user tied to the document may be the last to hold what belongs to it, so values go
    // first.
    properties.reset();
}

std::unique_ptr<Document> Document::CreateNew()
{
    return std::unique_ptr<Document>(new Document);
}

std::unique_ptr<Document> Document::Create(const boost::filesystem::path& file, const ReadOptions& options)
{
    std::shared_ptr<const Detail::DocumentSource> source = OrvPdf::OpenFile(file, options);
    std::unique_ptr<Document> document = CreateNew();
    document->filePath = boost::filesystem::absolute(file);
    document->source = std::move(source);
    document->activeErrors->TakeFrom(document->source->GetLateErrors());
    document->source->ReadStructure(*document);
    return document;
}

void Document::Save(const boost::filesystem::path& file, const WriteOptions& options)
{
    OrvPdf::SaveDocument(*this, file, options);
}

void Document::Flush()
{
    OrvPdf::FlushDocument(*this);
}

bool Document::GetInfoFlag(DocumentInfoFlagKey key) const
{
    return (infoFlags & GetBit(key)) != 0;
}

void Document::SetInfoFlag(DocumentInfoFlagKey key, bool value)
{
    infoFlags = value ? infoFlags | GetBit(key) : infoFlags & ~GetBit(key);
}

Errors& Document::GetActiveErrors()
{
    LoadPages();
    return *activeErrors;
}

const Errors& Document::GetActiveErrors() const
{
    LoadPages();
    return *activeErrors;
}

std::uint64_t Document::GetNumberOfPages() const
{
    return LoadPages().size();
}

Document::ConstPageIterator Document::GetPagesBegin() const
{
    return ConstPageIterator(LoadPages().cbegin());
}

Document::PageIterator Document::GetPagesBegin()
{
    return PageIterator(LoadPages().begin());
}

Document::ConstPageIterator Document::GetPagesEnd() const
{
    return ConstPageIterator(LoadPages().cend());
}

const std::vector<Separation::Entry>& Document::GetSeparationInfo() const
{
    std::call_once(lazy->separationsOnce, [this] {
        if (source)
            lazy->separations = source->ReadSeparations();
    });
    return lazy->separations;
}

void Document::SetSeparationInfo(std::vector<Separation::Entry> entries)
{
    std::call_once(lazy->separationsOnce, [] {}); // Nobody is to read them from the file any more.
    lazy->separations = std::move(entries);
}

void Document::SetOutputIntent(boost::optional<OrvColor::OutputIntent> intent)
{
    outputIntent = std::move(intent);
}

Page& Document::AddPage(const Rectangle& mediaBox)
{
    return InsertPage(LoadPages().size(), mediaBox);
}

Page& Document::InsertPage(std::uint64_t index, const Rectangle& mediaBox)
{
    std::vector<std::unique_ptr<Page>>& pages = LoadPages();
    if (index > pages.size())
        ThrowNoPage(index, pages.size());
    auto page = std::make_unique<Page>(*this, index, nullptr);
    page->SetPageBox(PageBox::Media, mediaBox);
    Page& result = *page;
    pages.insert(std::next(pages.begin(), static_cast<std::ptrdiff_t>(index)), std::move(page));
    if (index + 1 < pages.size())
        RenumberPages();
    return result;
}

void Document::RemovePage(std::uint64_t index)
{
    std::vector<std::unique_ptr<Page>>& pages = LoadPages();
    if (index >= pages.size())
        ThrowNoPage(index, pages.size());
    pages.erase(std::next(pages.begin(), static_cast<std::ptrdiff_t>(index)));
    RenumberPages();
}

std::vector<std::unique_ptr<Page>>& Document::LoadPages() const
{
    std::call_once(lazy->pagesOnce, [this] {
        if (!source)
            return;
        // The pages give out the document of the caller who may change it; only factories make documents, and
        // none makes a const one.
        auto& document = const_cast<Document&>(*this);
        Detail::PageTree tree = source->ReadPageTree();
        std::vector<std::unique_ptr<Page>> pages;
        pages.reserve(tree.pages.size());
        for (std::unique_ptr<Detail::PageSource>& page : tree.pages)
            pages.push_back(std::make_unique<Page>(document, pages.size(), std::move(page)));
        for (std::string& error : tree.errors)
            activeErrors->Add(std::move(error), Errors::Origin::Reading);
        lazy->pages = std::move(pages);
    });
    return lazy->pages;
}

void Document::RenumberPages()
{
    std::uint64_t index = 0;
    for (const std::unique_ptr<Page>& page : lazy->pages)
        page->index = index++;
}

void Document::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Document::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Document::PropagateVisitorSelf(ConstVisitorBase& visitor) const
{
    for (const std::unique_ptr<Page>& page : LoadPages())
        std::as_const(*page).Accept(visitor);
}

void Document::PropagateVisitorSelf(VisitorBase& visitor)
{
    // By index: a visitor may add a page.
    const std::vector<std::unique_ptr<Page>>& pages = LoadPages();
    for (std::size_t index = 0; index < pages.size(); ++index)
        pages[index]->Accept(visitor);
}

} // namespace OrvDoc
