#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include <boost/optional.hpp>

#include <orv_doc/page_box.h>
#include <orv_doc/page_content.h>
#include <orv_doc/transfer_function_set.h>
#include <orv_doc/visitable.h>
#include <plexa/rectangle.h>

namespace OrvDoc
{

class Document;

namespace Detail
{
class PageSource;
}

/// A page: its boxes and its one content. A document owns its pages.
class ORV_EXPORT Page : public Visitable
{
public:
    ~Page() override;

    /// The box in milli-points; a box that was never set has the rectangle's initial state. Boxes that a page
    /// of a file inherits are its boxes.
    const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& GetPageBox(PageBox box) const;
    /// The page's content. That of a page of a file is interpreted when it is first asked for: once, safely
    /// from several threads. What can't be interpreted becomes an active error of the content.
    const PageContent& GetContent() const;
    PageContent& GetContent();
    /// Counted from zero.
    std::uint64_t GetPageIndex() const { return index; }
    void SetTransferFunctionSet(boost::optional<TransferFunctionSet> functions);

    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    /// A rectangle in its initial state takes the box away.
    void SetPageBox(PageBox box, const Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>& rectangle);
    const Document& GetDocument() const { return document; }
    Document& GetDocument() { return document; }
    /// Whether the content has been made: false for a page of a file that nobody has asked for its content.
    bool IsContentLoaded() const;
    /// The page of the file that this page was read from; null for one that a program made.
    const Detail::PageSource* GetSource() const { return source.get(); }

    /// Called by the document. A null source makes an empty page.
    Page(Document& document, std::uint64_t index, std::unique_ptr<Detail::PageSource> source);

protected:
    void PropagateVisitorSelf(ConstVisitorBase& visitor) const override;
    void PropagateVisitorSelf(VisitorBase& visitor) override;

private:
    friend class Document;

    Document& document;
    std::uint64_t index;
    std::array<Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>, 5> boxes;
    std::unique_ptr<Detail::PageSource> source;
    mutable std::once_flag contentOnce;
    mutable std::unique_ptr<PageContent> content;
    mutable std::atomic<bool> isContentLoaded{false};
};

} // namespace OrvDoc
