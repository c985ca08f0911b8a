#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include <orv_doc/blendable.h>

namespace OrvDoc
{

struct MarkedContent;

/// A container of objects inside a content. Owns its children.
class ORV_EXPORT Group : public Blendable
{
public:
    /// 32 bits; bit 30 marks a group that a user made.
    enum class Flags : std::uint32_t
    {
        Default = 0x1FF,
        UserCreated = 0x40000000,
        DefaultUserCreated = 0x400001FF,
    };

    explicit Group(Flags flags);
    ~Group() override;

    Flags GetFlags() const { return flags; }

    /// Takes ownership; the object becomes the last child. Throws `std::invalid_argument` for a null pointer
    /// and for an object that stands in a container or contains this group; the object is then still the
    /// caller's.
    void AddOnTop(ContentObject* object);

    /// The children in paint order, the lowest first.
    Detail::List<ContentObject> children;

protected:
    /// A direct child has changed. Stands ahead of what overrides `Visitable`, which takes places in the
    /// table of virtual operations as well, so that this one comes right behind those of an object.
    virtual void ChildChangedSelf(ContentObject& child, WhatChangedFlags what);

public:
    Group* Clone(CloneStrategy& strategy) const override;
    std::pair<std::string, std::string> DumpInfo() const override;
    /// The box around the boxes of the children. Those that clip add nothing, and nothing is cut off at them,
    /// so that the box may be larger than what is seen.
    Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem> GetBoundingBoxSelf(
        BoxKind kind,
        const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& transformation) const override;
    void Accept(ConstVisitorBase& visitor) const override;
    void Accept(VisitorBase& visitor) override;

    // For makers of documents.

    void SetFlags(Flags value);
    /// The marked content of a file that this group stands for; null for any other group.
    const MarkedContent* GetMarkedContent() const { return markedContent.get(); }
    void SetMarkedContent(std::shared_ptr<const MarkedContent> value);

protected:
    void PropagateVisitorSelf(ConstVisitorBase& visitor) const override;
    void PropagateVisitorSelf(VisitorBase& visitor) override;
    void ContentChangedSelf(Content* oldContent, Content* newContent) override;
    void TransformationChangedSelf(const Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>& change,
                                   TransformationMode mode) override;
    void ClippingObjectChangedSelf() override;

    /// Copies what every group has, and the children, into a clone.
    void CloneInto(Group& clone, CloneStrategy& strategy) const;

private:
    friend class ContentObject;

    Flags flags;
    std::shared_ptr<const MarkedContent> markedContent;
    /// Whether anything below may keep a shape in its final position. Lets a group that holds nothing of the
    /// kind move into another one in constant time, whatever is below it.
    mutable std::atomic<bool> hasDerivedShapes{false};
};

} // namespace OrvDoc
