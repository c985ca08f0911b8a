// The operations of contents and of the objects in them, with their exact signatures.

#include "document_interface/signature.h"

#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <orv_doc/document.h>
#include <orv_doc/dump.h>
#include <orv_doc/errors.h>
#include <orv_doc/group.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/image.h>
#include <orv_doc/image_mask.h>
#include <orv_doc/path.h>
#include <orv_doc/scratch_document.h>
#include <orv_doc/text.h>
#include <plexa/geometry.h>

namespace
{

using namespace InterfaceTests;
using namespace OrvDoc;

using List = Detail::List<ContentObject>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;
using PdfCoordinate = Plexa::CoordinateBase<Plexa::PdfCoordinateSystem>;
using PdfTransformation = Plexa::TransformationBase<Plexa::PdfCoordinateSystem>;
using CompoundPointer = std::shared_ptr<const Plexa::Compound>;
using FunctionPointer = std::shared_ptr<const OrvPaint::Function>;
using PaintPointer = std::shared_ptr<const OrvPaint::Paint>;

static_assert(std::is_same_v<decltype(List::first), ContentObject*>);
static_assert(std::is_same_v<decltype(List::last), ContentObject*>);
static_assert(std::is_same_v<decltype(Detail::ListItem<ContentObject>::next), ContentObject*>);

static_assert(Has<std::uint64_t (Content::*)() const>(&Content::GetID));
static_assert(Has<Content::Type (Content::*)() const>(&Content::GetType));
static_assert(Has<Document& (Content::*)()>(&Content::GetDocument));
static_assert(Has<const List& (Content::*)() const>(&Content::GetChildren));
static_assert(Has<List& (Content::*)()>(&Content::GetChildren));
static_assert(Has<BlendColorSpace (Content::*)() const>(&Content::GetBlendColorSpace));
static_assert(Has<void (Content::*)(BlendColorSpace)>(&Content::SetBlendColorSpace));
static_assert(
    Has<const boost::optional<TransferFunctionSet>& (Content::*)() const>(&Content::GetTransferFunctionSet));
static_assert(Has<void (Content::*)(ContentObject*)>(&Content::AddOnTop));
static_assert(Has<Errors& (Content::*)() const>(&Content::GetActiveErrors));
static_assert(Has<std::ostream& (*)(std::ostream&, const BlendColorSpace&)>(&OrvDoc::operator<<));

static_assert(static_cast<int>(Content::Type::PageContent) == 0);
static_assert(static_cast<int>(Content::Type::FormContent) == 1);
static_assert(static_cast<int>(Content::Type::ColoredPatternContent) == 2);
static_assert(static_cast<int>(Content::Type::UncoloredPatternContent) == 3);
static_assert(static_cast<int>(Content::Type::SoftMaskContent) == 4);

static_assert(std::is_copy_constructible_v<TransferFunctionSet>);
static_assert(Has<const FunctionPointer& (TransferFunctionSet::*)() const>(
    &TransferFunctionSet::GetDefaultTransferFunction));
static_assert(Has<const std::vector<std::pair<std::string, FunctionPointer>>& (TransferFunctionSet::*)()
                      const>(&TransferFunctionSet::GetNamedTransferFunctions));

static_assert(Has<std::uint64_t (ContentObject::*)() const>(&ContentObject::GetID));
static_assert(Has<const Content* (ContentObject::*)() const>(&ContentObject::GetContent));
static_assert(Has<ContentObject* (ContentObject::*)()>(&ContentObject::ExtractFromParent));

static_assert(Has<const std::shared_ptr<const OrvBlend::Transparency>& (Blendable::*)() const>(
    &Blendable::GetTransparency));
static_assert(Has<const PaintPointer& (Fillable::*)() const>(&Fillable::GetFillPaint));
static_assert(Has<void (Fillable::*)(PaintPointer)>(&Fillable::SetFillPaint));
static_assert(Has<const std::shared_ptr<HalftoneSet>& (Fillable::*)() const>(&Fillable::GetHalftoneSet));
static_assert(Has<const PaintPointer& (Strokable::*)() const>(&Strokable::GetStrokePaint));
static_assert(Has<const std::shared_ptr<HalftoneSet>& (Image::*)() const>(&Image::GetHalftoneSet));
static_assert(
    Has<const std::shared_ptr<const OrvImg::PaintedPicture>& (Image::*)() const>(&Image::GetPaintedPicture));
static_assert(Has<const std::shared_ptr<const OrvImg::PictureData>& (ImageMask::*)() const>(
    &ImageMask::GetPictureData));

static_assert(sizeof(Group::Flags) == 4, "a set of 32 bits");
static_assert(Has<Group::Flags (Group::*)() const>(&Group::GetFlags));
static_assert(Has<void (Group::*)(ContentObject*)>(&Group::AddOnTop));
static_assert(std::is_same_v<decltype(Group::children), List>);

static_assert(Has<const CompoundPointer& (Path::*)() const>(&Path::DefiningCompound));
static_assert(Has<const CompoundPointer& (Path::*)(const Transformation*) const>(&Path::TransformedCompound));

static_assert(Has<const std::shared_ptr<const OrvFont::Font>& (Text::*)() const>(&Text::GetFont));
static_assert(Has<const std::vector<TextCharacter>& (Text::*)() const>(&Text::GetText));
static_assert(Has<double (Text::*)() const>(&Text::GetSize));
static_assert(Has<PdfCoordinate (Text::*)() const>(&Text::GetCharSpacing));
static_assert(Has<PdfCoordinate (Text::*)() const>(&Text::GetWordSpacing));
static_assert(Has<const Transformation& (Text::*)() const>(&Text::GetTextTransformation));
static_assert(
    Has<const std::vector<PdfTransformation>& (Text::*)() const>(&Text::GetCharacterTransformations));
static_assert(Has<const std::vector<CompoundPointer>& (Text::*)() const>(&Text::OriginalCompounds));
static_assert(Has<const std::vector<CompoundPointer>& (Text::*)(const Transformation*) const>(
    &Text::TransformedCompounds));

static_assert(Has<bool (TextCharacter::*)(const TextCharacter&) const>(&TextCharacter::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, const std::vector<TextCharacter>&)>(&OrvDoc::operator<<));
static_assert(std::is_aggregate_v<TextCharacter>);
static_assert(std::is_same_v<decltype(TextCharacter::character), OrvFont::Character>);
static_assert(std::is_same_v<decltype(TextCharacter::source), std::uint64_t>);
static_assert(std::is_same_v<decltype(TextCharacter::flags), std::uint32_t>);

static_assert(Has<const std::string& (HalftoneSet::*)() const>(&HalftoneSet::GetName));
static_assert(Has<bool (*)(const HalftoneSet&, const HalftoneSet&)>(&OrvDoc::operator==));
static_assert(Has<std::ostream& (*)(std::ostream&, const HalftoneSet&)>(&OrvDoc::operator<<));

static_assert(Has<Transformation (*)(const Transformable&)>(&GetAbsoluteTransformation));
static_assert(Has<void (*)(const Visitable&, std::ostream&, DumpOption, std::uint64_t)>(&Dump));

class ContentOperations : public testing::Test
{
protected:
    ~ContentOperations() override
    {
        while (content.GetChildren().first)
            delete content.GetChildren().first->ExtractFromParent();
    }

    static Group* MakeGroup() { return new Group(Group::Flags{0x1FF}); }

    Content& content = GetScratchDocument().GetPagesBegin()->GetContent();
};

TEST_F(ContentOperations, APagesContentHasItsTypeAndDocument)
{
    EXPECT_EQ(content.GetType(), Content::Type::PageContent);
    EXPECT_EQ(&content.GetDocument(), &GetScratchDocument());
}

TEST_F(ContentOperations, ObjectsAreLinkedInPaintOrder)
{
    Group* const lower = MakeGroup();
    Group* const upper = MakeGroup();
    content.AddOnTop(lower);
    content.AddOnTop(upper);
    EXPECT_EQ(content.GetChildren().first, lower);
    EXPECT_EQ(lower->next, upper);
    EXPECT_EQ(content.GetChildren().last, upper);
    EXPECT_EQ(upper->next, nullptr);
}

TEST_F(ContentOperations, ChildrenOfAGroupAreLinkedInPaintOrder)
{
    const std::unique_ptr<Group> group(MakeGroup());
    EXPECT_EQ(group->children.first, nullptr);
    EXPECT_EQ(group->children.last, nullptr);
    Group* const child = MakeGroup();
    group->AddOnTop(child);
    EXPECT_EQ(group->children.first, child);
    EXPECT_EQ(group->children.last, child);
}

TEST_F(ContentOperations, AnObjectKnowsTheContentThatItStandsIn)
{
    Group* const group = MakeGroup();
    EXPECT_EQ(std::as_const(*group).GetContent(), nullptr);
    content.AddOnTop(group);
    EXPECT_EQ(std::as_const(*group).GetContent(), &content);
}

TEST_F(ContentOperations, AnExtractedObjectIsTheCallersAndInNoContent)
{
    content.AddOnTop(MakeGroup());
    const std::unique_ptr<ContentObject> object(content.GetChildren().first->ExtractFromParent());
    EXPECT_EQ(content.GetChildren().first, nullptr);
    EXPECT_EQ(std::as_const(*object).GetContent(), nullptr);
}

TEST_F(ContentOperations, FlagsOfAGroupAreKeptAsTheyWereGiven)
{
    EXPECT_EQ(static_cast<std::uint32_t>(Group(Group::Flags{0x1FF}).GetFlags()), 0x1FFu);
    EXPECT_EQ(static_cast<std::uint32_t>(Group(Group::Flags{0x400001FF}).GetFlags()), 0x400001FFu);
}

TEST_F(ContentOperations, ObjectsHaveNoNameTransparencyOrPaintAtFirst)
{
    const Path path(Plexa::GetRectangleCompound({0.0, 0.0, 1000.0, 1000.0}));
    EXPECT_EQ(path.GetName(), "");
    EXPECT_FALSE(path.IsClippingObject());
    EXPECT_EQ(path.GetFillPaint(), nullptr);
    EXPECT_EQ(path.GetStrokePaint(), nullptr);
    EXPECT_EQ(path.GetHalftoneSet(), nullptr);
}

TEST_F(ContentOperations, ADumpWritesSomething)
{
    std::ostringstream stream;
    Dump(*std::unique_ptr<Group>(MakeGroup()), stream, DumpOption{1024}, 0);
    EXPECT_FALSE(stream.str().empty());
}

} // namespace
