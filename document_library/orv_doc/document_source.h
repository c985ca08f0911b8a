#pragma once

#include <array>
#include <memory>
#include <string>
#include <vector>

#include <orv_doc/separation.h>
#include <plexa/rectangle.h>

namespace OrvDoc
{
class Document;
class PageContent;
} // namespace OrvDoc

namespace OrvDoc::Detail
{

class LateErrors;

/// A page of a file. Everything here may be called from several threads.
class PageSource
{
public:
    virtual ~PageSource() = default;

    /// The page's boxes in the order of `PageBox`, inherited ones resolved.
    virtual std::array<Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>, 5> ReadBoxes() const = 0;
    /// Fills the page's empty content. What can't be modelled becomes an active error of the content, of
    /// origin `Reading`; nothing is thrown for what a file holds.
    virtual void Interpret(PageContent& content) const = 0;
};

/// What a `DocumentSource` finds when it reads the page tree.
struct PageTree
{
    std::vector<std::unique_ptr<PageSource>> pages;
    /// Texts of the active errors of the document, of origin `Reading`.
    std::vector<std::string> errors;
};

/// A file that a document was read from. The model knows files only through this class, so that it needs no
/// PDF library. Everything here may be called from several threads.
class DocumentSource
{
public:
    virtual ~DocumentSource() = default;

    /// Reads what belongs to the document as a whole into it: output intent, layers, flags, links. Adds its
    /// active errors. Called once, while the document is made.
    virtual void ReadStructure(Document& document) const = 0;
    virtual PageTree ReadPageTree() const = 0;
    /// The separations that the pages' colour spaces name.
    virtual std::vector<Separation::Entry> ReadSeparations() const = 0;
    /// Where problems wait that are found while nothing of the above runs.
    virtual const std::shared_ptr<LateErrors>& GetLateErrors() const = 0;
};

} // namespace OrvDoc::Detail
