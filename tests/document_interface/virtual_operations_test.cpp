// Which class of the tree implements which virtual operation, and the order of the operations in the table of
// virtual functions. Who builds on the tree overrides by these names and signatures.

#include "document_interface/signature.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/clone.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/layer.h>
#include <orv_doc/path.h>
#include <orv_doc/text.h>
#include <orv_doc/text_group.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvDoc;
using testing::ElementsAre;

using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

/// Opens the protected operations of a class. No object of it is ever made.
template <typename Class>
struct Opened : Class
{
    using Class::ClippingObjectChangedSelf;
    using Class::ContentChangedSelf;
    using Class::OriginalOutlineChangedSelf;
    using Class::PropagateVisitorSelf;
    using Class::TransformationChangedSelf;
};

struct OpenedGroup : Group
{
    using Group::ChildChangedSelf;
};

template <typename Class>
struct OpenedStrokable : Class
{
    using Class::StrokePropertiesChangedSelf;
};

// Pick one of the two overloads that take a visitor.
template <typename Class>
MemberOwner<int Class::*> PickConst(void (Class::*)(ConstVisitorBase&) const);
template <typename Class>
MemberOwner<int Class::*> PickMutable(void (Class::*)(VisitorBase&));

template <typename C>
using CloneOwner = OwnerOf<decltype(&C::Clone)>;
template <typename C>
using SetNameOwner = OwnerOf<decltype(&C::SetName)>;
template <typename C>
using GetNameOwner = OwnerOf<decltype(&C::GetName)>;
template <typename C>
using IsClippingObjectOwner = OwnerOf<decltype(&C::IsClippingObject)>;
template <typename C>
using DumpInfoOwner = OwnerOf<decltype(&C::DumpInfo)>;
template <typename C>
using GetBoundingBoxSelfOwner = OwnerOf<decltype(&C::GetBoundingBoxSelf)>;
template <typename C>
using ContentChangedOwner = OwnerOf<decltype(&Opened<C>::ContentChangedSelf)>;
template <typename C>
using OriginalOutlineChangedOwner = OwnerOf<decltype(&Opened<C>::OriginalOutlineChangedSelf)>;
template <typename C>
using TransformationChangedOwner = OwnerOf<decltype(&Opened<C>::TransformationChangedSelf)>;
template <typename C>
using ClippingObjectChangedOwner = OwnerOf<decltype(&Opened<C>::ClippingObjectChangedSelf)>;
template <typename C>
using AcceptConstOwner = typename decltype(PickConst(&C::Accept))::Result;
template <typename C>
using AcceptOwner = typename decltype(PickMutable(&C::Accept))::Result;
template <typename C>
using PropagateConstOwner = typename decltype(PickConst(&Opened<C>::PropagateVisitorSelf))::Result;
template <typename C>
using PropagateOwner = typename decltype(PickMutable(&Opened<C>::PropagateVisitorSelf))::Result;

/// The class that gives each concrete class its implementation of an operation.
template <template <typename> class Owner>
std::vector<std::string> GetOwners()
{
    return {"Group: " + GetShortName<Owner<Group>>(),
            "TextGroup: " + GetShortName<Owner<TextGroup>>(),
            "Layer: " + GetShortName<Owner<Layer>>(),
            "Image: " + GetShortName<Owner<Image>>(),
            "ImageMask: " + GetShortName<Owner<ImageMask>>(),
            "Path: " + GetShortName<Owner<Path>>(),
            "Text: " + GetShortName<Owner<Text>>()};
}

const auto eachClassItself = ElementsAre("Group: Group", "TextGroup: TextGroup", "Layer: Layer",
                                         "Image: Image", "ImageMask: ImageMask", "Path: Path", "Text: Text");

TEST(VirtualOperations, EachConcreteClassClonesItself)
{
    EXPECT_THAT(GetOwners<CloneOwner>(), eachClassItself);
}

TEST(VirtualOperations, EachConcreteClassDescribesItself)
{
    EXPECT_THAT(GetOwners<DumpInfoOwner>(), eachClassItself);
}

TEST(VirtualOperations, EachConcreteClassAcceptsVisitorsItself)
{
    EXPECT_THAT(GetOwners<AcceptOwner>(), eachClassItself);
    EXPECT_THAT(GetOwners<AcceptConstOwner>(), eachClassItself);
}

TEST(VirtualOperations, OnlyGroupLeadsAVisitorThroughChildren)
{
    const auto owners = ElementsAre("Group: Group", "TextGroup: Group", "Layer: Group", "Image: Visitable",
                                    "ImageMask: Visitable", "Path: Visitable", "Text: Visitable");
    EXPECT_THAT(GetOwners<PropagateOwner>(), owners);
    EXPECT_THAT(GetOwners<PropagateConstOwner>(), owners);
}

TEST(VirtualOperations, OnlyLayerHasANameOfItsOwnKind)
{
    const auto owners = ElementsAre("Group: ContentObject", "TextGroup: ContentObject", "Layer: Layer",
                                    "Image: ContentObject", "ImageMask: ContentObject", "Path: ContentObject",
                                    "Text: ContentObject");
    EXPECT_THAT(GetOwners<SetNameOwner>(), owners);
    EXPECT_THAT(GetOwners<GetNameOwner>(), owners);
}

TEST(VirtualOperations, OnlyPathAndTextGroupTellWhetherTheyClip)
{
    EXPECT_THAT(GetOwners<IsClippingObjectOwner>(),
                ElementsAre("Group: ContentObject", "TextGroup: TextGroup", "Layer: ContentObject",
                            "Image: ContentObject", "ImageMask: ContentObject", "Path: Path",
                            "Text: ContentObject"));
}

TEST(VirtualOperations, AllButLayerHaveABoxOfTheirOwn)
{
    EXPECT_THAT(GetOwners<GetBoundingBoxSelfOwner>(),
                ElementsAre("Group: Group", "TextGroup: TextGroup", "Layer: Group", "Image: Image",
                            "ImageMask: ImageMask", "Path: Path", "Text: Text"));
}

TEST(VirtualOperations, GroupAndLayerPassAChangeOfContentOn)
{
    EXPECT_THAT(GetOwners<ContentChangedOwner>(),
                ElementsAre("Group: Group", "TextGroup: Group", "Layer: Layer", "Image: ContentObject",
                            "ImageMask: ContentObject", "Path: ContentObject", "Text: ContentObject"));
}

TEST(VirtualOperations, PathAndTextFollowTheirOutline)
{
    EXPECT_THAT(GetOwners<OriginalOutlineChangedOwner>(),
                ElementsAre("Group: Transformable", "TextGroup: Transformable", "Layer: Transformable",
                            "Image: Transformable", "ImageMask: Transformable", "Path: Path", "Text: Text"));
}

TEST(VirtualOperations, ChangesOfTransformationReachTheClassesThatKeepSomething)
{
    EXPECT_THAT(GetOwners<TransformationChangedOwner>(),
                ElementsAre("Group: Group", "TextGroup: Group", "Layer: Group", "Image: Blendable",
                            "ImageMask: Fillable", "Path: Path", "Text: Text"));
}

TEST(VirtualOperations, GroupPassesAChangeOfClippingOn)
{
    EXPECT_THAT(GetOwners<ClippingObjectChangedOwner>(),
                ElementsAre("Group: Group", "TextGroup: Group", "Layer: Group", "Image: Clippable",
                            "ImageMask: Clippable", "Path: Clippable", "Text: Clippable"));
}

TEST(VirtualOperations, PathAndTextFollowTheirStrokeProperties)
{
    EXPECT_EQ(GetShortName<OwnerOf<decltype(&OpenedStrokable<Path>::StrokePropertiesChangedSelf)>>(), "Path");
    EXPECT_EQ(GetShortName<OwnerOf<decltype(&OpenedStrokable<Text>::StrokePropertiesChangedSelf)>>(), "Text");
    EXPECT_EQ(GetShortName<OwnerOf<decltype(&OpenedStrokable<Strokable>::StrokePropertiesChangedSelf)>>(),
              "Strokable");
}

// The signatures, as the base of the line has them.
static_assert(Has<ContentObject* (ContentObject::*)(CloneStrategy&) const>(&ContentObject::Clone));
static_assert(Has<void (ContentObject::*)(const std::string&)>(&ContentObject::SetName));
static_assert(Has<const std::string& (ContentObject::*)() const>(&ContentObject::GetName));
static_assert(Has<bool (ContentObject::*)() const>(&ContentObject::IsClippingObject));
static_assert(Has<std::pair<std::string, std::string> (ContentObject::*)() const>(&ContentObject::DumpInfo));
static_assert(Has<Rectangle (ContentObject::*)(BoxKind, const Transformation&) const>(
    &ContentObject::GetBoundingBoxSelf));
static_assert(Has<void (ContentObject::*)(Content*, Content*)>(&Opened<ContentObject>::ContentChangedSelf));
static_assert(Has<void (ContentObject::*)()>(&Opened<ContentObject>::OriginalOutlineChangedSelf));
static_assert(Has<void (ContentObject::*)(const Transformation&, TransformationMode)>(
    &Opened<ContentObject>::TransformationChangedSelf));
static_assert(Has<void (ContentObject::*)()>(&Opened<ContentObject>::ClippingObjectChangedSelf));
static_assert(
    Has<void (Group::*)(ContentObject&, ContentObject::WhatChangedFlags)>(&OpenedGroup::ChildChangedSelf));
static_assert(Has<void (Strokable::*)()>(&OpenedStrokable<Strokable>::StrokePropertiesChangedSelf));

TEST(VirtualOperations, VisitableHasItsOperationsInOrder)
{
    struct Probe : Visitable
    {
        using Visitable::PropagateVisitorSelf;
    };
    using Const = void (Visitable::*)(ConstVisitorBase&) const;
    using Mutable = void (Visitable::*)(VisitorBase&);
    EXPECT_EQ(GetSlots(static_cast<Const>(&Visitable::Accept), static_cast<Mutable>(&Visitable::Accept),
                       static_cast<Const>(&Probe::PropagateVisitorSelf),
                       static_cast<Mutable>(&Probe::PropagateVisitorSelf)),
              CountFrom(2, 4));
}

TEST(VirtualOperations, ContentObjectHasItsOperationsInOrder)
{
    using Object = Opened<ContentObject>;
    const std::vector<std::size_t> slots = GetSlots(
        &Object::Clone, &Object::SetName, &Object::GetName, &Object::IsClippingObject, &Object::DumpInfo,
        &Object::GetBoundingBoxSelf, &Object::ContentChangedSelf, &Object::OriginalOutlineChangedSelf,
        &Object::TransformationChangedSelf, &Object::ClippingObjectChangedSelf);
    EXPECT_EQ(slots, CountFrom(slots.front(), 10));
}

TEST(VirtualOperations, GroupAndStrokableAddTheirOperationAtTheEnd)
{
    const std::size_t last = GetSlots(&Opened<ContentObject>::ClippingObjectChangedSelf).front();
    EXPECT_EQ(GetSlots(&OpenedGroup::ChildChangedSelf), CountFrom(last + 1, 1));
    EXPECT_EQ(GetSlots(&OpenedStrokable<Strokable>::StrokePropertiesChangedSelf), CountFrom(last + 1, 1));
}

} // namespace
