#pragma once

#include <orv_doc/content.h>

namespace OrvDoc
{

class Page;

/// The content of a page.
class ORV_EXPORT PageContent : public Content
{
public:
    ~PageContent() override;

    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    PageContent(Document& document, const Page& page);
    const Page& GetPage() const { return page; }

private:
    const Page& page;
};

} // namespace OrvDoc
