#include <orv_doc/visitor.h>

#include <orv_doc/document.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/page.h>
#include <orv_doc/page_content.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

namespace OrvDoc
{

VisitorBase::~VisitorBase() = default;

bool VisitorBase::Visit(TextGroup& object)
{
    return Visit(static_cast<Group&>(object));
}

bool VisitorBase::Visit(Layer& object)
{
    return Visit(static_cast<Group&>(object));
}

bool VisitorBase::Visit(Group& object)
{
    return Visit(static_cast<Blendable&>(object));
}

bool VisitorBase::Visit(ImageMask& object)
{
    return Visit(static_cast<Fillable&>(object));
}

bool VisitorBase::Visit(Text& object)
{
    return Visit(static_cast<Strokable&>(object));
}

bool VisitorBase::Visit(Path& object)
{
    return Visit(static_cast<Strokable&>(object));
}

bool VisitorBase::Visit(Strokable& object)
{
    return Visit(static_cast<Fillable&>(object));
}

bool VisitorBase::Visit(Fillable& object)
{
    return Visit(static_cast<Blendable&>(object));
}

bool VisitorBase::Visit(Image& object)
{
    return Visit(static_cast<Blendable&>(object));
}

bool VisitorBase::Visit(Blendable& object)
{
    return Visit(static_cast<Clippable&>(object));
}

bool VisitorBase::Visit(Clippable& object)
{
    return Visit(static_cast<Transformable&>(object));
}

bool VisitorBase::Visit(Transformable& object)
{
    return Visit(static_cast<ContentObject&>(object));
}

bool VisitorBase::Visit(ContentObject&)
{
    return true;
}

bool VisitorBase::Visit(PageContent& content)
{
    return Visit(static_cast<Content&>(content));
}

bool VisitorBase::Visit(Content&)
{
    return true;
}

bool VisitorBase::Visit(Page&)
{
    return true;
}

bool VisitorBase::Visit(Document&)
{
    return true;
}

void VisitorBase::EndVisit(TextGroup& object)
{
    EndVisit(static_cast<Group&>(object));
}

void VisitorBase::EndVisit(Layer& object)
{
    EndVisit(static_cast<Group&>(object));
}

void VisitorBase::EndVisit(Group& object)
{
    EndVisit(static_cast<Blendable&>(object));
}

void VisitorBase::EndVisit(ImageMask& object)
{
    EndVisit(static_cast<Fillable&>(object));
}

void VisitorBase::EndVisit(Text& object)
{
    EndVisit(static_cast<Strokable&>(object));
}

void VisitorBase::EndVisit(Path& object)
{
    EndVisit(static_cast<Strokable&>(object));
}

void VisitorBase::EndVisit(Strokable& object)
{
    EndVisit(static_cast<Fillable&>(object));
}

void VisitorBase::EndVisit(Fillable& object)
{
    EndVisit(static_cast<Blendable&>(object));
}

void VisitorBase::EndVisit(Image& object)
{
    EndVisit(static_cast<Blendable&>(object));
}

void VisitorBase::EndVisit(Blendable& object)
{
    EndVisit(static_cast<Clippable&>(object));
}

void VisitorBase::EndVisit(Clippable& object)
{
    EndVisit(static_cast<Transformable&>(object));
}

void VisitorBase::EndVisit(Transformable& object)
{
    EndVisit(static_cast<ContentObject&>(object));
}

void VisitorBase::EndVisit(ContentObject&) {}

void VisitorBase::EndVisit(PageContent& content)
{
    EndVisit(static_cast<Content&>(content));
}

void VisitorBase::EndVisit(Content&) {}

void VisitorBase::EndVisit(Page&) {}

void VisitorBase::EndVisit(Document&) {}

ConstVisitorBase::~ConstVisitorBase() = default;

bool ConstVisitorBase::Visit(const TextGroup& object)
{
    return Visit(static_cast<const Group&>(object));
}

bool ConstVisitorBase::Visit(const Layer& object)
{
    return Visit(static_cast<const Group&>(object));
}

bool ConstVisitorBase::Visit(const Group& object)
{
    return Visit(static_cast<const Blendable&>(object));
}

bool ConstVisitorBase::Visit(const ImageMask& object)
{
    return Visit(static_cast<const Fillable&>(object));
}

bool ConstVisitorBase::Visit(const Text& object)
{
    return Visit(static_cast<const Strokable&>(object));
}

bool ConstVisitorBase::Visit(const Path& object)
{
    return Visit(static_cast<const Strokable&>(object));
}

bool ConstVisitorBase::Visit(const Strokable& object)
{
    return Visit(static_cast<const Fillable&>(object));
}

bool ConstVisitorBase::Visit(const Fillable& object)
{
    return Visit(static_cast<const Blendable&>(object));
}

bool ConstVisitorBase::Visit(const Image& object)
{
    return Visit(static_cast<const Blendable&>(object));
}

bool ConstVisitorBase::Visit(const Blendable& object)
{
    return Visit(static_cast<const Clippable&>(object));
}

bool ConstVisitorBase::Visit(const Clippable& object)
{
    return Visit(static_cast<const Transformable&>(object));
}

bool ConstVisitorBase::Visit(const Transformable& object)
{
    return Visit(static_cast<const ContentObject&>(object));
}

bool ConstVisitorBase::Visit(const ContentObject&)
{
    return true;
}

bool ConstVisitorBase::Visit(const PageContent& content)
{
    return Visit(static_cast<const Content&>(content));
}

bool ConstVisitorBase::Visit(const Content&)
{
    return true;
}

bool ConstVisitorBase::Visit(const Page&)
{
    return true;
}

bool ConstVisitorBase::Visit(const Document&)
{
    return true;
}

void ConstVisitorBase::EndVisit(const TextGroup& object)
{
    EndVisit(static_cast<const Group&>(object));
}

void ConstVisitorBase::EndVisit(const Layer& object)
{
    EndVisit(static_cast<const Group&>(object));
}

void ConstVisitorBase::EndVisit(const Group& object)
{
    EndVisit(static_cast<const Blendable&>(object));
}

void ConstVisitorBase::EndVisit(const ImageMask& object)
{
    EndVisit(static_cast<const Fillable&>(object));
}

void ConstVisitorBase::EndVisit(const Text& object)
{
    EndVisit(static_cast<const Strokable&>(object));
}

void ConstVisitorBase::EndVisit(const Path& object)
{
    EndVisit(static_cast<const Strokable&>(object));
}

void ConstVisitorBase::EndVisit(const Strokable& object)
{
    EndVisit(static_cast<const Fillable&>(object));
}

void ConstVisitorBase::EndVisit(const Fillable& object)
{
    EndVisit(static_cast<const Blendable&>(object));
}

void ConstVisitorBase::EndVisit(const Image& object)
{
    EndVisit(static_cast<const Blendable&>(object));
}

void ConstVisitorBase::EndVisit(const Blendable& object)
{
    EndVisit(static_cast<const Clippable&>(object));
}

void ConstVisitorBase::EndVisit(const Clippable& object)
{
    EndVisit(static_cast<const Transformable&>(object));
}

void ConstVisitorBase::EndVisit(const Transformable& object)
{
    EndVisit(static_cast<const ContentObject&>(object));
}

void ConstVisitorBase::EndVisit(const ContentObject&) {}

void ConstVisitorBase::EndVisit(const PageContent& content)
{
    EndVisit(static_cast<const Content&>(content));
}

void ConstVisitorBase::EndVisit(const Content&) {}

void ConstVisitorBase::EndVisit(const Page&) {}

void ConstVisitorBase::EndVisit(const Document&) {}

} // namespace OrvDoc
