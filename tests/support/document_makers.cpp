#include "document_makers.h"

#include <plexa/geometry.h>

#include <stdexcept>

namespace HarrowSupport::Testing
{

std::unique_ptr<OrvDoc::Document> NewDocument(std::size_t pageCount)
{
    std::unique_ptr<OrvDoc::Document> document = OrvDoc::Document::CreateNew();
    for (std::size_t i = 0; i < pageCount; ++i)
        document->AddPage(Box(0.0, 0.0, 100000.0, 100000.0));
    return document;
}

OrvDoc::Page& PageOf(OrvDoc::Document& document, std::size_t index)
{
    if (index >= document.GetNumberOfPages())
        throw std::out_of_range("The test asks for a page that its document does not have.");
    auto page = document.GetPagesBegin();
    for (std::size_t i = 0; i < index; ++i)
        ++page;
    return *page;
}

OrvDoc::Content& ContentOf(OrvDoc::Document& document, std::size_t index)
{
    return PageOf(document, index).GetContent();
}

std::unique_ptr<OrvDoc::Content> NewContent(OrvDoc::Document& document, OrvDoc::Content::Type type)
{
    return std::make_unique<OrvDoc::Content>(document, type);
}

std::unique_ptr<OrvDoc::Group> ImplicitGroup()
{
    return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::Default);
}

std::unique_ptr<OrvDoc::Group> UserGroup()
{
    return std::make_unique<OrvDoc::Group>(OrvDoc::Group::Flags::DefaultUserCreated);
}

std::unique_ptr<OrvDoc::Group> NamedGroup(const std::string& name)
{
    return Named(ImplicitGroup(), name);
}

std::unique_ptr<OrvDoc::Path> Rectangle(double x, double y, double width, double height)
{
    return std::make_unique<OrvDoc::Path>(Plexa::GetRectangleCompound(Box(x, y, width, height)));
}

std::unique_ptr<OrvDoc::Path> Square()
{
    return Rectangle(1000.0, 1000.0, 5000.0, 5000.0);
}

std::unique_ptr<OrvDoc::Path> Square(const std::string& name)
{
    return Named(Square(), name);
}

std::unique_ptr<OrvDoc::Path> Clip(const std::string& name)
{
    std::unique_ptr<OrvDoc::Path> path = Square(name);
    path->SetClippingObject(true);
    return path;
}

Color Tints(std::initializer_list<std::pair<const char*, float>> tints, bool overprint)
{
    Color color;
    for (const std::pair<const char*, float>& tint : tints)
        color.Add(tint.first, tint.second);
    color.overprint = overprint;
    return color;
}

Color AllSeparations(float tint, bool overprint)
{
    Color color;
    color.all = true;
    color.valueForAll = tint;
    color.overprint = overprint;
    return color;
}

PaintPointer Flat(Color color)
{
    return OrvPaint::GetFlatPaint(std::move(color), nullptr);
}

std::unique_ptr<OrvDoc::Path> Filled(PaintPointer paint)
{
    std::unique_ptr<OrvDoc::Path> path = Square();
    path->SetFillPaint(std::move(paint));
    return path;
}

std::unique_ptr<OrvDoc::Path> Stroked(PaintPointer paint)
{
    std::unique_ptr<OrvDoc::Path> path = Square();
    path->SetStrokePaint(std::move(paint));
    return path;
}

} // namespace HarrowSupport::Testing
