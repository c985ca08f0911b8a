#pragma once

#include <orv_sys/export.h>

namespace OrvDoc
{

class Blendable;
class Clippable;
class Content;
class ContentObject;
class Document;
class Fillable;
class Group;
class Image;
class ImageMask;
class Layer;
class Page;
class PageContent;
class Path;
class Strokable;
class Text;
class TextGroup;
class Transformable;

/// Base of visitors that may change what they visit.
///
/// `Accept` of a document visits its pages in order; a page visits its content, a content its objects in list
/// order, a group its children in list order. What is below an item is visited only if `Visit` of the item
/// returned true; `EndVisit` follows every `Visit`, whatever it returned.
///
/// The default `Visit` and `EndVisit` of a class call those of its direct base class, so a visitor that
/// overrides `Visit(ContentObject&)` sees every object once. At the roots (`ContentObject`, `Content`,
/// `Page`, `Document`) the default `Visit` returns true and the default `EndVisit` does nothing.
///
/// A visitor may change what it visits, and add children to a group from the `Visit` of the group. It may
/// take an object out of its list, or delete it, in the object's `EndVisit` or later. Which object follows is
/// settled before an object's `Visit`: until its `EndVisit` is over, the next object must stay in its list,
/// and objects that are put behind the last one are not visited.
///
/// The depth of a tree is bounded by memory alone: groups are walked without recursion. An object of a class
/// that doesn't belong to the library is visited by its own `Accept`.
class ORV_EXPORT VisitorBase
{
public:
    VisitorBase() = default;
    virtual ~VisitorBase();

    virtual bool Visit(TextGroup& object);
    virtual bool Visit(Layer& object);
    virtual bool Visit(Group& object);
    virtual bool Visit(ImageMask& object);
    virtual bool Visit(Text& object);
    virtual bool Visit(Path& object);
    virtual bool Visit(Strokable& object);
    virtual bool Visit(Fillable& object);
    virtual bool Visit(Image& object);
    virtual bool Visit(Blendable& object);
    virtual bool Visit(Clippable& object);
    virtual bool Visit(Transformable& object);
    virtual bool Visit(ContentObject& object);
    virtual bool Visit(PageContent& content);
    virtual bool Visit(Content& content);
    virtual bool Visit(Page& page);
    virtual bool Visit(Document& document);

    virtual void EndVisit(TextGroup& object);
    virtual void EndVisit(Layer& object);
    virtual void EndVisit(Group& object);
    virtual void EndVisit(ImageMask& object);
    virtual void EndVisit(Text& object);
    virtual void EndVisit(Path& object);
    virtual void EndVisit(Strokable& object);
    virtual void EndVisit(Fillable& object);
    virtual void EndVisit(Image& object);
    virtual void EndVisit(Blendable& object);
    virtual void EndVisit(Clippable& object);
    virtual void EndVisit(Transformable& object);
    virtual void EndVisit(ContentObject& object);
    virtual void EndVisit(PageContent& content);
    virtual void EndVisit(Content& content);
    virtual void EndVisit(Page& page);
    virtual void EndVisit(Document& document);
};

/// The same for objects that are only read. The walk and the defaults are those of `VisitorBase`.
class ORV_EXPORT ConstVisitorBase
{
public:
    ConstVisitorBase() = default;
    virtual ~ConstVisitorBase();

    virtual bool Visit(const TextGroup& object);
    virtual bool Visit(const Layer& object);
    virtual bool Visit(const Group& object);
    virtual bool Visit(const ImageMask& object);
    virtual bool Visit(const Text& object);
    virtual bool Visit(const Path& object);
    virtual bool Visit(const Strokable& object);
    virtual bool Visit(const Fillable& object);
    virtual bool Visit(const Image& object);
    virtual bool Visit(const Blendable& object);
    virtual bool Visit(const Clippable& object);
    virtual bool Visit(const Transformable& object);
    virtual bool Visit(const ContentObject& object);
    virtual bool Visit(const PageContent& content);
    virtual bool Visit(const Content& content);
    virtual bool Visit(const Page& page);
    virtual bool Visit(const Document& document);

    virtual void EndVisit(const TextGroup& object);
    virtual void EndVisit(const Layer& object);
    virtual void EndVisit(const Group& object);
    virtual void EndVisit(const ImageMask& object);
    virtual void EndVisit(const Text& object);
    virtual void EndVisit(const Path& object);
    virtual void EndVisit(const Strokable& object);
    virtual void EndVisit(const Fillable& object);
    virtual void EndVisit(const Image& object);
    virtual void EndVisit(const Blendable& object);
    virtual void EndVisit(const Clippable& object);
    virtual void EndVisit(const Transformable& object);
    virtual void EndVisit(const ContentObject& object);
    virtual void EndVisit(const PageContent& content);
    virtual void EndVisit(const Content& content);
    virtual void EndVisit(const Page& page);
    virtual void EndVisit(const Document& document);
};

} // namespace OrvDoc
