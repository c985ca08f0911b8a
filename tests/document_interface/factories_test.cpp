// The factories of the system as a test program reaches them, with their exact signatures.

#include "document_interface/signature.h"

#include <harrow_support/factories.h>

#include <gtest/gtest.h>

#include <orv_doc/content.h>
#include <orv_doc/scratch_document.h>

namespace
{

using namespace HarrowSupport;
using InterfaceTests::Has;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Pairs = std::vector<std::array<double, 2>>;
using PathPointer = std::unique_ptr<OrvDoc::Path>;

static_assert(Has<std::shared_ptr<const OrvPaint::FlatPaint> (*)(Color)>(&CreateFlatPaint));
static_assert(Has<std::shared_ptr<const OrvPaint::FlatPaint> (*)(boost::string_view)>(&CreateFlatPaint));
static_assert(
    Has<std::shared_ptr<const OrvPaint::AxialShadingPaint> (*)(
        std::vector<Color>, std::vector<double>, std::vector<double>, Pairs)>(&CreateAxialShadingPaint));
static_assert(
    Has<std::shared_ptr<const OrvPaint::RadialShadingPaint> (*)(
        std::vector<Color>, std::vector<double>, std::vector<double>, Pairs)>(&CreateRadialShadingPaint));
static_assert(Has<PathPointer (*)(std::shared_ptr<const OrvPaint::FormPaint>)>(&CreateFormInstance));
static_assert(Has<std::unique_ptr<OrvDoc::Group> (*)()>(&CreateGroup));
static_assert(Has<std::unique_ptr<OrvDoc::Group> (*)()>(&CreateUserGroup));
static_assert(Has<PathPointer (*)(const Rectangle&)>(&CreatePath));
static_assert(Has<PathPointer (*)(std::shared_ptr<const Plexa::Compound>)>(&CreatePath));
static_assert(Has<std::unique_ptr<OrvDoc::TextGroup> (*)()>(&CreateTextGroup));
static_assert(
    Has<std::unique_ptr<OrvDoc::TextGroup> (*)(boost::string_view, OrvDoc::Content&)>(&CreateTextGroup));
static_assert(Has<std::unique_ptr<OrvDoc::Text> (*)(boost::string_view, OrvDoc::Content&)>(&CreateText));

TEST(FactoriesOfTheLibrary, AreThereForPrograms)
{
    const auto flat = CreateFlatPaint("Black");
    EXPECT_EQ(CreateFlatPaint(flat->GetColor())->GetColor(), flat->GetColor());
    const std::vector<Color> colors(2, flat->GetColor());
    EXPECT_NE(CreateAxialShadingPaint(colors, {0.0, 1.0}, {0.5}, {{0.0, 1.0}}), nullptr);
    EXPECT_NE(CreateRadialShadingPaint(colors, {0.0, 1.0}, {0.5}, {{0.0, 1.0}}), nullptr);
    const auto path = CreatePath(Rectangle(0.0, 0.0, 1.0, 1.0));
    EXPECT_EQ(CreatePath(path->DefiningCompound())->DefiningCompound(), path->DefiningCompound());
    const auto form =
        OrvPaint::FormPaint::Factory(std::make_shared<OrvDoc::Content>(OrvDoc::GetScratchDocument(),
                                                                       OrvDoc::Content::Type::FormContent))
            .Get();
    EXPECT_EQ(CreateFormInstance(form)->GetFillPaint(), form);
    EXPECT_NE(CreateGroup()->GetFlags(), CreateUserGroup()->GetFlags());
    EXPECT_EQ(CreateTextGroup()->children.first, nullptr);
    OrvDoc::Content& content = form->GetContent();
    EXPECT_EQ(CreateText("text", content)->GetText().size(), 4u);
    EXPECT_NE(CreateTextGroup("text", content)->children.first, nullptr);
}

} // namespace
