#pragma once

#include <cstdint>
#include <memory>

#include <boost/optional.hpp>

#include <orv_doc/blend_color_space.h>
#include <orv_doc/detail_list.h>
#include <orv_doc/transfer_function_set.h>
#include <orv_doc/visitable.h>
#include <orv_sys/export.h>

namespace OrvDoc
{

class ContentObject;
class Document;
class Errors;

namespace Detail
{
class ContentSource;
}

/// A tree of objects that is painted as a whole: that of a page, a form, a pattern cell or a soft mask. Owns
/// its objects.
class ORV_EXPORT Content : public Visitable
{
public:
    enum class Type : std::uint32_t
    {
        PageContent = 0,
        FormContent = 1,
        ColoredPatternContent = 2,
        UncoloredPatternContent = 3,
        SoftMaskContent = 4,
    };

    ~Content() override;

    /// A number that is given in order of creation and never twice.
    std::uint64_t GetID() const { return id; }
    Type GetType() const { return type; }
    Document& GetDocument() { return document; }

    /// The objects at the top of the tree in paint order, the lowest first.
    const Detail::List<ContentObject>& GetChildren() const { return children; }
    Detail::List<ContentObject>& GetChildren() { return children; }

    BlendColorSpace GetBlendColorSpace() const { return blendColorSpace; }
    void SetBlendColorSpace(BlendColorSpace space);
    const boost::optional<TransferFunctionSet>& GetTransferFunctionSet() const { return transferFunctions; }

    /// Takes ownership; the object becomes the last child. Throws `std::invalid_argument` for a null pointer
    /// and for an object that stands in a container; the object is then still the caller's.
    void AddOnTop(ContentObject* object);

    /// What the reader could not model or the writer cannot say, as far as it is in force now. The list
    /// belongs to the content. An error that stays in force stays the same object.
    Errors& GetActiveErrors() const { return *activeErrors; }

    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    /// An empty content of the document; the document must outlive it.
    Content(Document& document, Type type);
    const Document& GetDocument() const { return document; }
    void SetTransferFunctionSet(boost::optional<TransferFunctionSet> functions);
    /// Counts the changes of the content and of everything in it.
    std::uint64_t GetRevision() const { return revision; }
    void MarkChanged() { ++revision; }
    /// What a content of a form, pattern or soft mask was read from; null for one that a program made.
    const Detail::ContentSource* GetSource() const { return source.get(); }
    /// Whether it was read from a glyph of a font. As long as nobody changes it, what is filled with it is
    /// written as text; it becomes a form otherwise, which shows the same and is no text any more.
    bool IsGlyph() const;
    void SetSource(std::unique_ptr<const Detail::ContentSource> value);

protected:
    void PropagateVisitorSelf(ConstVisitorBase& visitor) const override;
    void PropagateVisitorSelf(VisitorBase& visitor) override;

private:
    Document& document;
    Type type;
    std::uint64_t id;
    std::uint64_t revision = 0;
    Detail::List<ContentObject> children;
    BlendColorSpace blendColorSpace;
    boost::optional<TransferFunctionSet> transferFunctions;
    std::unique_ptr<Errors> activeErrors;
    std::unique_ptr<const Detail::ContentSource> source;
};

} // namespace OrvDoc
