#include <orv_doc/content.h>

#include <stdexcept>
#include <utility>

#include <orv_doc/content_object.h>
#include <orv_doc/errors.h>
#include <orv_doc/visitor.h>

#include "orv_doc/content_source.h"
#include "orv_doc/next_id.h"

namespace OrvDoc
{

namespace
{

template <typename Object, typename Visitor>
void VisitAll(Object* object, Visitor& visitor)
{
    while (object) {
        Object* const next = object->next; // Read before the visit, for the object may be gone after it.
        object->Accept(visitor);
        object = next;
    }
}

} // namespace

Content::Content(Document& givenDocument, Type givenType)
    : document(givenDocument), type(givenType), id(Detail::NextID()), activeErrors(std::make_unique<Errors>())
{}

Content::~Content()
{
    ContentObject::DestroyAll(children);
}

void Content::SetBlendColorSpace(BlendColorSpace space)
{
    blendColorSpace = std::move(space);
    MarkChanged();
}

void Content::SetTransferFunctionSet(boost::optional<TransferFunctionSet> functions)
{
    transferFunctions = std::move(functions);
    MarkChanged();
}

void Content::SetSource(std::unique_ptr<const Detail::ContentSource> value)
{
    source = std::move(value);
}

bool Content::IsGlyph() const
{
    return source && source->IsGlyph();
}

void Content::AddOnTop(ContentObject* object)
{
    if (!object)
        throw std::invalid_argument("There is no object to add to the content.");
    if (object->content || object->parentGroup)
        throw std::invalid_argument("An object that stands in a container can't be added to a content.");
    children.Append(*object);
    object->ContentChangedSelf(nullptr, this);
    MarkChanged();
}

void Content::Accept(ConstVisitorBase& visitor) const
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Content::Accept(VisitorBase& visitor)
{
    if (visitor.Visit(*this))
        PropagateVisitorSelf(visitor);
    visitor.EndVisit(*this);
}

void Content::PropagateVisitorSelf(ConstVisitorBase& visitor) const
{
    VisitAll<const ContentObject>(children.first, visitor);
}

void Content::PropagateVisitorSelf(VisitorBase& visitor)
{
    VisitAll(children.first, visitor);
}

} // namespace OrvDoc
