#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <orv_doc/detail_list.h>
#include <orv_doc/visitable.h>
#include <orv_sys/export.h>
#include <plexa/rectangle.h>
#include <plexa/transformation.h>

namespace OrvDoc
{

class CloneStrategy;
class Content;
class Group;

/// Which box of an object is asked for.
enum class BoxKind : std::uint32_t
{
    Outline = 0, ///< The box of the shape itself.
    Painted = 1, ///< The box of what the object may paint: with the reach of its stroke.
};

/// How a transformation is applied to the one that an object has.
enum class TransformationMode : std::uint32_t
{
    Replace = 0, ///< It takes the place of the old one.
    Append = 1,  ///< It is applied after the old one.
};

/// Base of all objects of a content. An object belongs to exactly one container, a `Content` or a `Group`,
/// or, outside of any, to whoever holds its pointer. An object that is deleted takes itself out of its
/// container. Objects may be nested as deep as memory allows.
class ORV_EXPORT ContentObject : public Detail::ListItem<ContentObject>, public Visitable
{
public:
    /// What a change of an object touched; bits that can be combined.
    enum class WhatChangedFlags : std::uint32_t
    {
        Children = 1,
        Outline = 2,
        Transformation = 4,
        Clipping = 8,
        Paint = 16,
        Name = 32,
    };

    ~ContentObject() override;

    /// A copy for the strategy's document that needs nothing of this object's document. The caller owns it;
    /// it stands in no container.
    virtual ContentObject* Clone(CloneStrategy& strategy) const = 0;

    virtual void SetName(const std::string& name);
    /// UTF-8; empty if the object has no name.
    virtual const std::string& GetName() const;
    /// Whether the object clips the other objects of its container instead of being painted.
    virtual bool IsClippingObject() const;

    /// Two short texts for a dump: the kind of the object, and its properties.
    virtual std::pair<std::string, std::string> DumpInfo() const = 0;
    /// Box of the object's own shape under a transformation from the object's coordinates, in milli-points;
    /// in its initial state if the object has no extent. The object's own transformation plays no part: to
    /// get the box on the page, pass `GetAbsoluteTransformation`.
    virtual Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const = 0;

    /// A number that is given in order of creation and never twice.
    std::uint64_t GetID() const { return id; }
    /// The content that the object stands in, at any depth; null outside of any.
    const Content* GetContent() const { return content; }

    /// Takes the object out of its container and passes ownership to the caller. An object outside of any
    /// container is returned as it is.
    ContentObject* ExtractFromParent();

    // For makers of documents.

    Content* GetContent() { return content; }
    /// The group that the object stands in; null at the top of a content and outside of any container.
    const Group* GetParentGroup() const { return parentGroup; }
    Group* GetParentGroup() { return parentGroup; }

protected:
    ContentObject();

    /// The object, or a group around it, went from one content to another; either may be null.
    virtual void ContentChangedSelf(Content* oldContent, Content* newContent);
    /// The shape as given has changed.
    virtual void OriginalOutlineChangedSelf() = 0;
    /// The transformation of the object or of a group around it has changed by `change`. An identity is
    /// appended where the object went into another group.
    virtual void
    TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                              TransformationMode mode) = 0;
    /// An object beside this one, or beside a group around it, has begun or ceased to clip.
    virtual void ClippingObjectChangedSelf() = 0;

    /// Tells the parent group and the content that something about this object has changed.
    void NotifyChanged(WhatChangedFlags what);
    /// The same for `IsClippingObject`; tells the other objects of the container too. Linear in what they
    /// hold.
    void NotifyClippingRoleChanged();
    /// To be called by an object that keeps a shape in its final position, so that it is told when it goes
    /// into another group. Safe from several threads.
    void MarkDerivedShapes() const;

private:
    friend class Content;
    friend class Group;

    /// Takes the object out of its container's list.
    void Unlink();
    /// Tells what keeps shapes in final position, here and below, that the groups around it are others.
    void DropDerivedShapes();
    /// Destroys the objects of a list and everything below them, however deep.
    static void DestroyAll(Detail::List<ContentObject>& objects) noexcept;

    Content* content = nullptr;
    Group* parentGroup = nullptr;
    std::uint64_t id;
    std::unique_ptr<std::string>
        ownName; // Few objects have one; an empty pointer saves 24 bytes in each of the others.
};

} // namespace OrvDoc
