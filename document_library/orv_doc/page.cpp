#include <orv_doc/page.h>

#include <cstddef>
#include <utility>

#include <orv_doc/visitor.h>

#include "orv_doc/document_source.h"

namespace OrvDoc
{

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;

Page::Page(Document& givenDocument, std::uint64_t givenIndex, std::unique_ptr<Detail::PageSource> givenSource)
    : document(givenDocument), index(givenIndex), source(std::move(givenSource))
{
    if (source)
        boxes = source->ReadBoxes();
}

Page::~Page() = default;

const Rectangle& Page::GetPageBox(PageBox box) const
{
    return boxes.at(static_cast<std::size_t>(box));
}

void Page::SetPageBox(PageBox box, const Rectangle& rectangle)
{
    boxes.at(static_cast<std::size_t>(box)) = rectangle.isInitial ? Rectangle() : rectangle;
}

const PageContent& Page::GetContent() const
{
    std::call_once(contentOnce, [this] {
        auto made = std::make_unique<PageContent>(document, *this);
        if (source)
            source->Interpret(*made);
        content = std::move(made);
        isContentLoaded.store(true, std::memory_order_release);
    });
    return *content;
}

PageContent& Page::GetContent()
{
    return const_cast<PageContent&>(std::as_const(*this).GetContent());
}

bool Page::IsContentLoaded() const
{
    return isContentLoaded.load(std::memory_order_acquire);
}

void Page::SetTransferFunctionSet(boost::optional<TransferFunctionSet> functions)
{
    GetContent().SetTransferFunctionSet(std::move(functions));
}

void Page::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Page::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Page::PropagateVisitorSelf(ConstVisitorBase& visitor) const
{
    GetContent().Accept(visitor);
}

void Page::PropagateVisitorSelf(VisitorBase& visitor)
{
    GetContent().Accept(visitor);
}

} // namespace OrvDoc
