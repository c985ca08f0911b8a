#include <harrow_support/factories.h>

#include <cmath>
#include <limits>
#include <stdexcept>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_blend/transparency.h>
#include <orv_doc/content.h>
#include <orv_doc/scratch_document.h>
#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>
#include <plexa/compound_builder.h>
#include <plexa/geometry.h>

#include "generation/shading_function.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"

namespace HarrowSupport::Testing
{
namespace
{

using OrvPaint::ExponentialFunction;
using OrvPaint::Function;
using OrvPaint::StitchingFunction;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using Colors = std::vector<Color>;
using Encode = std::vector<std::array<double, 2>>;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;
using Point = Plexa::PointBase<Plexa::MilliPointCoordinateSystem>;
using Rectangle = Plexa::RectangleBase<Plexa::MilliPointCoordinateSystem>;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

Color Ink(const char* name, float tint)
{
    Color color;
    color.Add(name, tint);
    return color;
}

const Colors blackToGold = {Ink("Black", 1.0f), Ink("Gold", 0.5f)};
const Colors threeInks = {Ink("Black", 1.0f), Ink("Gold", 0.5f), Ink("Black", 0.25f)};

const ExponentialFunction& AsExponential(const Function& function)
{
    return dynamic_cast<const ExponentialFunction&>(function);
}

const StitchingFunction& AsStitching(const Function& function)
{
    return dynamic_cast<const StitchingFunction&>(function);
}

// Flat paints.

TEST(CreateFlatPaintTest, KeepsTheListUnchanged)
{
    const Color color{{{0.5f, "Gold"}, {0.0f, ""}, {2.0f, "Gold"}}, 0.75f, true, true};
    EXPECT_EQ(CreateFlatPaint(color)->GetColor(), color);
}

TEST(CreateFlatPaintTest, ANameIsFullInkOfThatSeparation)
{
    EXPECT_EQ(CreateFlatPaint("Black")->GetColor(), (Color{{{1.0f, "Black"}}, 0.0f, false, false}));
}

TEST(CreateFlatPaintTest, ANameIsNeitherParsedNorLookedUp)
{
    for (const std::string name : {"", "All", "None", "Cyan Magenta", "/Gold", "no such ink"})
        EXPECT_EQ(CreateFlatPaint(name)->GetColor(), (Color{{{1.0f, name}}, 0.0f, false, false})) << name;
}

TEST(CreateFlatPaintTest, ANameMayBePartOfALongerText)
{
    const boost::string_view text("Black\0Gold and more", 19);
    EXPECT_EQ(CreateFlatPaint(text.substr(0, 10))->GetColor().entries.front().name,
              std::string("Black\0Gold", 10));
}

TEST(CreateFlatPaintTest, TwoCallsGiveEqualPaints)
{
    EXPECT_EQ(CreateFlatPaint("Gold")->GetColor(), CreateFlatPaint("Gold")->GetColor());
    EXPECT_NE(CreateFlatPaint("Gold"), CreateFlatPaint("Gold"));
}

// The mapping of a shading.

TEST(ShadingMappingTest, NumbersSeparationsInTheOrderOfFirstAppearance)
{
    const Colors colors = {Color{{{0.0f, "Gold"}, {0.0f, "Black"}}, 0.0f, false, false}, Ink("Cut", 1.0f),
                           Color{{{1.0f, "Black"}, {1.0f, "Varnish"}}, 0.0f, false, false}};
    EXPECT_EQ(
        MakeSeparationMapping(colors),
        (Mapping{{{0, "Gold"}, {1, "Black"}, {2, "Cut"}, {3, "Varnish"}}, OrvColor::Unmapped, false, false}));
}

TEST(ShadingMappingTest, ASeparationThatStandsTwiceInOneColorAppearsOnce)
{
    const Colors colors = {Color{{{1.0f, "Gold"}, {0.5f, "Gold"}, {1.0f, "Cut"}}, 0.0f, false, false}};
    EXPECT_EQ(MakeSeparationMapping(colors),
              (Mapping{{{0, "Gold"}, {1, "Cut"}}, OrvColor::Unmapped, false, false}));
}

TEST(ShadingMappingTest, TakesOverprintOfTheFirstColorAlone)
{
    Colors colors = blackToGold;
    colors[0].overprint = true;
    EXPECT_TRUE(MakeSeparationMapping(colors).overprint);
    colors[0].overprint = false;
    colors[1].overprint = true;
    EXPECT_FALSE(MakeSeparationMapping(colors).overprint);
}

TEST(ShadingMappingTest, AllSeparationsOfTheFirstColorLeaveNoNames)
{
    Colors colors = blackToGold;
    colors[0].all = true;
    colors[0].overprint = true;
    EXPECT_EQ(MakeSeparationMapping(colors), (Mapping{{}, 0, true, true}));
}

TEST(ShadingMappingTest, AllSeparationsOfALaterColorChangeNothing)
{
    Colors colors = blackToGold;
    colors[1].all = true;
    EXPECT_EQ(MakeSeparationMapping(colors), MakeSeparationMapping(blackToGold));
    EXPECT_THAT(MakeSeparationMapping(colors).entries, SizeIs(2));
}

// The function of a shading.

std::shared_ptr<const Function> MakeFunction(const Colors& colors, std::vector<double> bounds,
                                             const std::vector<double>& midpoints, Encode encode)
{
    return CreateAxialShadingPaint(colors, std::move(bounds), midpoints, std::move(encode))->GetFunction();
}

TEST(ShadingFunctionTest, TwoColorsOverZeroToOneMakeALoneExponentialFunction)
{
    const auto function = MakeFunction(blackToGold, {0.25, 0.75}, {0.5}, {{0.0, 1.0}});
    ASSERT_EQ(function->GetType(), Function::Type::Exponential);
    EXPECT_THAT(function->GetDomain(), ElementsAre(ElementsAre(0.25, 0.75)));
    EXPECT_THAT(AsExponential(*function).GetC0(), ElementsAre(1.0f, 0.0f));
    EXPECT_THAT(AsExponential(*function).GetC1(), ElementsAre(0.0f, 0.5f));
    EXPECT_EQ(AsExponential(*function).GetN(), 1.0);
}

TEST(ShadingFunctionTest, FurtherBoundsMidpointsAndPairsOfALoneFunctionAreNotLookedAt)
{
    const auto function = MakeFunction(blackToGold, {0.0, 2.0, 7.0}, {0.5, 0.1}, {{0.0, 1.0}, {0.25, nan}});
    ASSERT_EQ(function->GetType(), Function::Type::Exponential);
    EXPECT_THAT(function->GetDomain(), ElementsAre(ElementsAre(0.0, 2.0)));
}

TEST(ShadingFunctionTest, TwoColorsOverAnythingElseMakeAStitchingFunctionOfOne)
{
    const double belowZero = std::nextafter(0.0, -1.0);
    const double aboveZero = std::nextafter(0.0, 1.0);
    const double belowOne = std::nextafter(1.0, 0.0);
    const double aboveOne = std::nextafter(1.0, 2.0);
    for (const std::array<double, 2> pair : {std::array<double, 2>{0.0, 0.5},
                                             {1.0, 0.0},
                                             {belowZero, 1.0},
                                             {aboveZero, 1.0},
                                             {0.0, belowOne},
                                             {0.0, aboveOne},
                                             {nan, 1.0},
                                             {0.0, nan}}) {
        const auto function = MakeFunction(blackToGold, {0.25, 0.75}, {0.5}, {pair});
        ASSERT_EQ(function->GetType(), Function::Type::Stitching) << pair[0] << ' ' << pair[1];
        const auto& parts = AsStitching(*function).GetFunctions();
        ASSERT_THAT(parts, SizeIs(1));
        EXPECT_THAT(parts[0]->GetDomain(), ElementsAre(ElementsAre(0.0, 1.0)));
        EXPECT_THAT(AsExponential(*parts[0]).GetC1(), ElementsAre(0.0f, 0.5f));
    }
}

TEST(ShadingFunctionTest, ANegativeZeroIsAZero)
{
    EXPECT_EQ(MakeFunction(blackToGold, {0.0, 1.0}, {0.5}, {{-0.0, 1.0}})->GetType(),
              Function::Type::Exponential);
}

TEST(ShadingFunctionTest, ThreeColorsAlwaysMakeAStitchingFunctionOfTwo)
{
    const auto function = MakeFunction(threeInks, {0.5}, {0.5, 0.5}, {{0.0, 1.0}, {0.0, 1.0}});
    ASSERT_EQ(function->GetType(), Function::Type::Stitching);
    const auto& parts = AsStitching(*function).GetFunctions();
    ASSERT_THAT(parts, SizeIs(2));
    EXPECT_THAT(AsExponential(*parts[0]).GetC0(), ElementsAre(1.0f, 0.0f));
    EXPECT_THAT(AsExponential(*parts[0]).GetC1(), ElementsAre(0.0f, 0.5f));
    EXPECT_THAT(AsExponential(*parts[1]).GetC0(), ElementsAre(0.0f, 0.5f));
    EXPECT_THAT(AsExponential(*parts[1]).GetC1(), ElementsAre(0.25f, 0.0f));
}

TEST(ShadingFunctionTest, TwoColorsCanBeStitchedOverTheSameBounds)
{
    const auto function = MakeFunction(blackToGold, {0.25, 0.75}, {0.5}, {{0.0, 0.5}});
    ASSERT_EQ(function->GetType(), Function::Type::Stitching);
    EXPECT_THAT(AsStitching(*function).GetBounds(), ElementsAre(0.25, 0.75));
    EXPECT_THAT(AsStitching(*function).GetEncode(), ElementsAre(ElementsAre(0.0, 0.5)));
    EXPECT_THAT(AsStitching(*function).GetFunctions().front()->GetDomain(),
                ElementsAre(ElementsAre(0.0, 1.0)));
}

TEST(ShadingFunctionTest, PairsOfThreeColorsAreTheLibrarysBusiness)
{
    const auto function = MakeFunction(threeInks, {0.5}, {0.5, 0.5}, {});
    EXPECT_EQ(function->GetType(), Function::Type::Stitching);
    EXPECT_THROW(MakeFunction(threeInks, {0.5}, {0.5, 0.5}, {{0.0, 1.0}}), std::invalid_argument);
}

TEST(ShadingFunctionTest, TheSegmentsOfManyColorsStandInOrder)
{
    Colors colors;
    const std::vector<double> midpoints = {0.5, 0.25, 0.75, 0.125};
    for (const float tint : {0.0f, 0.125f, 0.25f, 0.5f, 1.0f})
        colors.push_back(Ink("Gold", tint));
    const auto function = MakeFunction(colors, {0.1, 0.2, 0.3}, midpoints, Encode(4, {0.0, 1.0}));
    const auto& parts = AsStitching(*function).GetFunctions();
    ASSERT_THAT(parts, SizeIs(4));
    for (std::size_t index = 0; index < 4; ++index) {
        const ExponentialFunction& part = AsExponential(*parts[index]);
        EXPECT_EQ(part.GetC0().front(), colors[index].entries.front().value) << index;
        EXPECT_EQ(part.GetC1().front(), colors[index + 1].entries.front().value) << index;
        EXPECT_EQ(part.GetN(), OrvPaint::MidpointToExponent(midpoints[index])) << index;
        EXPECT_THAT(part.GetDomain(), ElementsAre(ElementsAre(0.0, 1.0))) << index;
    }
}

TEST(ShadingFunctionTest, TheStitchingFunctionTakesBoundsAndPairsUnchanged)
{
    const Encode encode = {{1.0, 0.0}, {0.25, 0.75}};
    const auto inner = MakeFunction(threeInks, {0.375}, {0.5, 0.5}, encode);
    EXPECT_THAT(AsStitching(*inner).GetBounds(), ElementsAre(0.375));
    EXPECT_EQ(AsStitching(*inner).GetEncode(), encode);
    const auto outer = MakeFunction(threeInks, {-1.0, 0.375, 3.0}, {0.5, 0.5}, encode);
    EXPECT_THAT(AsStitching(*outer).GetBounds(), ElementsAre(-1.0, 0.375, 3.0));
}

TEST(ShadingFunctionTest, EachSegmentHasTheExponentOfItsMidpoint)
{
    const auto function = MakeFunction(threeInks, {0.5}, {0.25, 0.75}, {{0.0, 1.0}, {0.0, 1.0}});
    const auto& parts = AsStitching(*function).GetFunctions();
    EXPECT_EQ(AsExponential(*parts[0]).GetN(), OrvPaint::MidpointToExponent(0.25));
    EXPECT_EQ(AsExponential(*parts[1]).GetN(), OrvPaint::MidpointToExponent(0.75));
    EXPECT_NE(AsExponential(*parts[0]).GetN(), AsExponential(*parts[1]).GetN());
    const auto lone = MakeFunction(blackToGold, {0.0, 1.0}, {0.25}, {{0.0, 1.0}});
    EXPECT_EQ(AsExponential(*lone).GetN(), 0.5);
}

TEST(ShadingFunctionTest, AllSeparationsAreOneComponent)
{
    const Colors colors = {Color{{}, 0.25f, false, true}, Color{{}, 0.75f, false, true}};
    const auto function = MakeFunction(colors, {0.0, 1.0}, {0.5}, {{0.0, 1.0}});
    EXPECT_THAT(AsExponential(*function).GetC0(), ElementsAre(0.25f));
    EXPECT_THAT(AsExponential(*function).GetC1(), ElementsAre(0.75f));
}

TEST(ShadingFunctionTest, WhatTheLibraryThrowsReachesTheCaller)
{
    EXPECT_THROW(MakeFunction({Ink("Black", 1.0f)}, {}, {}, {}), std::invalid_argument);
    EXPECT_THROW(MakeFunction(threeInks, {0.25, 0.5}, {0.5, 0.5}, {{0.0, 1.0}, {0.0, 1.0}}),
                 std::invalid_argument);
}

// Shadings.

TEST(CreateAxialShadingPaintTest, HasTheMappingOfItsColorsAndFixedSettings)
{
    const auto shading = CreateAxialShadingPaint(threeInks, {0.5}, {0.5, 0.5}, {{0.0, 1.0}, {0.0, 1.0}});
    EXPECT_EQ(shading->GetType(), OrvPaint::Paint::Type::AxialShading);
    EXPECT_EQ(shading->GetSeparationMapping(), MakeSeparationMapping(threeInks));
    EXPECT_EQ(shading->GetTransformation(), Transformation(1.0, 0.0, 0.0, 1.0, 0.0, 0.0));
    EXPECT_EQ(shading->GetExtends(), std::make_pair(true, true));
    EXPECT_EQ(shading->GetPoints(), std::make_pair(Point(0.0, 0.0), Point(1.0, 0.0)));
    EXPECT_FALSE(shading->GetBackground());
    EXPECT_TRUE(shading->GetBoundingBox().isInitial);
}

TEST(CreateRadialShadingPaintTest, HasTheMappingOfItsColorsAndFixedSettings)
{
    const auto shading = CreateRadialShadingPaint(threeInks, {0.5}, {0.5, 0.5}, {{0.0, 1.0}, {0.0, 1.0}});
    EXPECT_EQ(shading->GetType(), OrvPaint::Paint::Type::RadialShading);
    EXPECT_EQ(shading->GetSeparationMapping(), MakeSeparationMapping(threeInks));
    EXPECT_EQ(shading->GetTransformation(), Transformation(1.0, 0.0, 0.0, 1.0, 0.0, 0.0));
    EXPECT_EQ(shading->GetExtends(), std::make_pair(true, true));
    EXPECT_EQ(shading->GetCenters(), std::make_pair(Point(0.0, 0.0), Point(1.0, 0.0)));
    EXPECT_EQ(shading->GetRadii().first.value, 0.0);
    EXPECT_EQ(shading->GetRadii().second.value, 1.0);
}

TEST(CreateRadialShadingPaintTest, HasTheFunctionOfAnAxialOne)
{
    const auto axial = CreateAxialShadingPaint(blackToGold, {0.0, 2.0}, {0.25}, {{0.0, 1.0}});
    const auto radial = CreateRadialShadingPaint(blackToGold, {0.0, 2.0}, {0.25}, {{0.0, 1.0}});
    EXPECT_EQ(radial->GetFunction()->GetType(), Function::Type::Exponential);
    EXPECT_TRUE(*radial->GetFunction() == *axial->GetFunction());
}

// Objects.

std::shared_ptr<const OrvPaint::FormPaint> MakeForm()
{
    auto content =
        std::make_shared<OrvDoc::Content>(OrvDoc::GetScratchDocument(), OrvDoc::Content::Type::FormContent);
    return OrvPaint::FormPaint::Factory(std::move(content))
        .SetFormBBox({1000.0, 2000.0, 30000.0, 40000.0})
        .SetFormTransformation({2.0, 0.0, 0.0, 3.0, 5000.0, 6000.0})
        .Get();
}

TEST(CreateFormInstanceTest, IsTheTransformedBoxFilledWithTheForm)
{
    const auto form = MakeForm();
    const auto path = CreateFormInstance(form);
    EXPECT_EQ(path->GetFillPaint(), form);
    EXPECT_EQ(*path->DefiningCompound(), *Plexa::GetRectangleCompound({7000.0, 12000.0, 60000.0, 120000.0}));
}

TEST(CreateFormInstanceTest, IsABoxUnderASkewingTransformationToo)
{
    const auto form = OrvPaint::FormPaint::Factory(*MakeForm())
                          .SetFormTransformation({1.0, 0.0, 0.5, -1.0, 0.0, 100.0})
                          .Get();
    Plexa::CompoundBuilder builder;
    builder.MoveTo({2000.0, -1900.0});
    builder.LineTo({32000.0, -1900.0});
    builder.LineTo({52000.0, -41900.0});
    builder.LineTo({22000.0, -41900.0});
    builder.Close();
    EXPECT_EQ(*CreateFormInstance(form)->DefiningCompound(), *builder.Finish(Plexa::WindingRule::NonZero));
}

TEST(CreateFormInstanceTest, SetsNothingElse)
{
    const auto path = CreateFormInstance(MakeForm());
    EXPECT_EQ(path->GetStrokePaint(), nullptr);
    EXPECT_EQ(path->GetTransparency(), nullptr);
    EXPECT_EQ(path->GetHalftoneSet(), nullptr);
    EXPECT_EQ(path->GetName(), "");
    EXPECT_FALSE(path->IsClippingObject());
    EXPECT_EQ(OrvDoc::GetAbsoluteTransformation(*path), Transformation());
}

TEST(CreateGroupTest, HasTheNineLowFlags)
{
    const auto group = CreateGroup();
    EXPECT_EQ(static_cast<std::uint32_t>(group->GetFlags()), 511u);
    EXPECT_EQ(group->children.first, nullptr);
}

TEST(CreateGroupTest, AUsersGroupDiffersInBitThirtyAlone)
{
    const auto flags = static_cast<std::uint32_t>(CreateUserGroup()->GetFlags());
    EXPECT_EQ(flags, 0x400001FFu);
    EXPECT_EQ(flags ^ static_cast<std::uint32_t>(CreateGroup()->GetFlags()), std::uint32_t{1} << 30);
}

TEST(CreateGroupTest, AComparisonTellsNothingButWhoMadeTheGroup)
{
    const auto document = OrvDoc::Document::CreateNew();
    const auto contentWith = [&document](std::unique_ptr<OrvDoc::Group> group) {
        // Otherwise a comparison looks through a group that no user made.
        group->SetTransparency(OrvBlend::Transparency::Factory().SetKnockout(true).Get());
        auto content = NewContent(*document, OrvDoc::Content::Type::PageContent);
        Fill(*content, std::move(group));
        return content;
    };
    ExpectReports(*contentWith(CreateUserGroup()), *contentWith(CreateGroup()),
                  {Difference("GroupIsUserCreated", "1", "0")});
}

TEST(CreatePathTest, OfACompoundHasThatVeryShape)
{
    Plexa::CompoundBuilder builder;
    builder.MoveTo({1.0, 2.0});
    builder.LineTo({3.0, 4.0});
    const std::shared_ptr<const Plexa::Compound> compound = builder.Finish(Plexa::WindingRule::EvenOdd);
    const auto path = CreatePath(compound);
    EXPECT_EQ(path->DefiningCompound(), compound);
    EXPECT_EQ(path->GetFillPaint(), nullptr);
    EXPECT_EQ(path->GetStrokePaint(), nullptr);
}

TEST(CreatePathTest, OfARectangleHasItsOutline)
{
    const Rectangle rectangle(1.0, 2.0, -3.0, 4.0);
    EXPECT_EQ(*CreatePath(rectangle)->DefiningCompound(), *Plexa::GetRectangleCompound(rectangle));
}

TEST(CreatePathTest, WithoutACompoundThrowsWhatTheLibraryThrows)
{
    EXPECT_THROW(CreatePath(std::shared_ptr<const Plexa::Compound>()), std::invalid_argument);
}

TEST(CreateTextGroupTest, IsEmpty)
{
    const std::unique_ptr<OrvDoc::TextGroup> group = CreateTextGroup();
    EXPECT_EQ(group->children.first, nullptr);
    EXPECT_EQ(group->GetContent(), nullptr);
    EXPECT_EQ(group->GetFlags(), OrvDoc::TextGroup().GetFlags());
}

// What the same arguments give twice.

TEST(FactoriesTest, TwoCallsGiveEqualObjects)
{
    const auto document = OrvDoc::Document::CreateNew();
    const auto form = MakeForm();
    const auto make = [&] {
        auto content = NewContent(*document, OrvDoc::Content::Type::PageContent);
        const Rectangle rectangle(1.0, 2.0, 3.0, 4.0);
        const Encode encode(2, {0.0, 1.0});
        auto flat = CreatePath(rectangle);
        flat->SetFillPaint(CreateFlatPaint("Gold"));
        auto axial = CreatePath(rectangle);
        axial->SetFillPaint(CreateAxialShadingPaint(threeInks, {0.5}, {0.25, 0.5}, encode));
        auto radial = CreatePath(rectangle);
        radial->SetFillPaint(CreateRadialShadingPaint(threeInks, {0.5}, {0.25, 0.5}, encode));
        Fill(*content, std::move(flat), std::move(axial), std::move(radial), CreateFormInstance(form),
             CreateGroup(), CreateUserGroup(), CreateTextGroup());
        return content;
    };
    ExpectReports(*make(), *make(), {});
}

} // namespace
} // namespace HarrowSupport::Testing
