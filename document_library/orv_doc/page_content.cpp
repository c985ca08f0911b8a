#include <orv_doc/page_content.h>

#include <orv_doc/visitor.h>

namespace OrvDoc
{

PageContent::PageContent(Document& givenDocument, const Page& givenPage)
    : Content(givenDocument, Type::PageContent), page(givenPage)
{}

PageContent::~PageContent() = default;

void PageContent::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void PageContent::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

} // namespace OrvDoc
