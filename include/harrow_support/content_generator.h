#pragma once

#include <harrow_support/export.h>

#include <memory>
#include <stack>

#include <boost/utility/string_view.hpp>

namespace OrvDoc
{
class Content;
class ContentObject;
class Document;
class Group;
} // namespace OrvDoc

namespace HarrowSupport
{

/// Fills a content with a tree of objects in a chain of calls:
///
///     ContentGenerator(page.GetContent())
///         .BeginLayer("Artwork")
///         .Add(std::move(background))
///         .BeginGroup(std::move(group))
///         .Add(std::move(logo))
///         .EndGroup()
///         .EndLayer();
///
/// A generator is a cursor in the tree: a stack of the containers that are open now. Each object goes on top
/// of the innermost one, or of the content when none is open, and belongs to the tree from then on. The
/// generator owns nothing but its stack, so open containers need not be closed before it goes.
///
/// Nothing is checked or caught here. Exceptions of the document library pass through; an object that it
/// refused is lost to the caller, and a group or layer that it refused is not opened.
class HARROW_EXPORT ContentGenerator
{
public:
    /// The content must outlive the generator.
    explicit ContentGenerator(OrvDoc::Content& contentToFill);
    /// An independent cursor at the same place of the same tree.
    ContentGenerator(const ContentGenerator& other);
    ContentGenerator& operator=(const ContentGenerator&) = delete;
    ~ContentGenerator();

    /// Puts an object on top of the innermost open container. An empty pointer is handed on as it is.
    ContentGenerator& Add(std::unique_ptr<OrvDoc::ContentObject> object);

    /// Puts a group on top of the innermost open container and opens it.
    ContentGenerator& BeginGroup(std::unique_ptr<OrvDoc::Group> group);

    /// Registers a new layer of that name (UTF-8) with the document, puts an object for it on top of the
    /// innermost open container and opens that. Each call makes a layer of its own, also under a name that
    /// the document has already.
    ContentGenerator& BeginLayer(boost::string_view name);

    /// Closes the innermost open container, of whichever kind. One must be open: this is not checked.
    ContentGenerator& EndGroup();
    /// The same as EndGroup, to be read beside BeginLayer.
    ContentGenerator& EndLayer();

    /// The object on top of the innermost open container: the one that was added last, or the group that was
    /// closed last. The container must have a child, so there is none to ask for right behind a Begin call:
    /// this is not checked.
    OrvDoc::ContentObject& Current();

    /// The document that the content belongs to.
    OrvDoc::Document& GetDocument();

private:
    struct InsertionEntry
    {
        OrvDoc::Group* container;
        bool isLayer;
    };

    OrvDoc::Content& content;
    std::stack<InsertionEntry> insertionStack;
};

} // namespace HarrowSupport
