#include <orv_doc/scratch_document.h>

#include <memory>

#include <orv_doc/document.h>

namespace OrvDoc
{

namespace
{

std::unique_ptr<Document> MakeScratchDocument()
{
    std::unique_ptr<Document> document = Document::CreateNew();
    // A sheet of A4; the size has no meaning for its users.
    document->AddPage({0.0, 0.0, 595000.0, 842000.0});
    return document;
}

} // namespace

Document& GetScratchDocument()
{
    static const std::unique_ptr<Document> document = MakeScratchDocument();
    return *document;
}

} // namespace OrvDoc
