#include <orv_paint/axial_shading_paint.h>
#include <orv_paint/radial_shading_paint.h>
#include <orv_paint/shading_paint.h>
#include <orv_paint/whole_shading_paint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include <orv_paint/exponential_function.h>
#include <orv_paint/whole_function.h>

namespace OrvPaint
{
namespace
{

using OrvColor::ColorSpace;
using OrvSys::PdfObject;
using testing::ElementsAre;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;
using Mapping = OrvColor::ColorList<OrvColor::SeparationMappingPolicy>;
using Point = AxialShadingPaint::Point;
using Transformation = Plexa::TransformationBase<Plexa::MilliPointCoordinateSystem>;

const Mapping twoInks{{{0, "Gold"}, {1, "Cut"}}, OrvColor::Unmapped, true, false};

std::shared_ptr<const Function> MakeRamp(double low = 0.0, double high = 1.0)
{
    return ExponentialFunction::Factory({0.0f, 0.0f}, {1.0f, 1.0f}, 1.0).SetDomain({low, high}).Get();
}

PdfObject Pairs(std::size_t count)
{
    PdfObject::Items items;
    for (std::size_t index = 0; index < count; ++index) {
        items.push_back(PdfObject::Integer(0));
        items.push_back(PdfObject::Integer(1));
    }
    return PdfObject::Array(std::move(items));
}

std::shared_ptr<const Function> MakeFunctionOfTwoInputs()
{
    return WholeFunction::Make(PdfObject::Stream(
        PdfObject::Dictionary(
            {{"FunctionType", PdfObject::Integer(4)}, {"Domain", Pairs(2)}, {"Range", Pairs(1)}}),
        "{ add }"));
}

/// What every shading's factory and class share is tested on the two that the interface names.
template <typename Shading>
class ShadingPaintTest : public testing::Test
{
protected:
    typename Shading::Factory factory{twoInks};
};

using Shadings = testing::Types<AxialShadingPaint, RadialShadingPaint>;
TYPED_TEST_SUITE(ShadingPaintTest, Shadings);

TYPED_TEST(ShadingPaintTest, BeginsWithItsMappingAndFunctionAlone)
{
    const auto shading = this->factory.SetFunction(MakeRamp()).Get();
    EXPECT_EQ(shading->GetSeparationMapping(), twoInks);
    EXPECT_TRUE(Plexa::IsIdentity(shading->GetTransformation()));
    EXPECT_TRUE(shading->GetBoundingBox().isInitial);
    EXPECT_FALSE(shading->GetBackground());
    EXPECT_EQ(shading->GetNativeSpace(), nullptr);
    EXPECT_FALSE(shading->IsNonzeroOverprint());
    EXPECT_FALSE(shading->IsAntiAliased());
    EXPECT_EQ(shading->GetExtends(), std::make_pair(false, false));
}

TYPED_TEST(ShadingPaintTest, SettersSetTheirField)
{
    const std::vector<OrvColor::Component> background = {0.25f, 0.5f};
    const auto function = MakeRamp();
    const auto shading = this->factory.SetFunction(function)
                             .SetTransformation(Transformation(2, 0, 0, 2, 0, 0))
                             .SetBoundingBox({1, 2, 3, 4})
                             .SetBackground(background)
                             .SetNativeSpace(ColorSpace::DeviceRGB(), true)
                             .SetAntiAliased(true)
                             .SetExtends({true, false})
                             .Get();
    EXPECT_EQ(shading->GetFunction(), function);
    EXPECT_EQ(shading->GetTransformation(), Transformation(2, 0, 0, 2, 0, 0));
    EXPECT_EQ(shading->GetBoundingBox(), Plexa::RectangleBase<Plexa::PdfCoordinateSystem>(1, 2, 3, 4));
    EXPECT_TRUE(shading->GetBackground() == background);
    EXPECT_EQ(shading->GetNativeSpace(), ColorSpace::DeviceRGB());
    EXPECT_TRUE(shading->IsNonzeroOverprint());
    EXPECT_TRUE(shading->IsAntiAliased());
    EXPECT_EQ(shading->GetExtends(), std::make_pair(true, false));
}

TYPED_TEST(ShadingPaintTest, ColorantsAreNamesAndFlagsOfTheMapping)
{
    const std::shared_ptr<const Paint> shading = this->factory.SetFunction(MakeRamp()).Get();
    EXPECT_EQ(shading->GetColorants(), (Colorants{{{{}, "Gold"}, {{}, "Cut"}}, {}, true, false}));
    const std::shared_ptr<const Paint> all =
        typename TypeParam::Factory(Mapping{{}, 0, false, true}).SetFunction(MakeRamp()).Get();
    EXPECT_EQ(all->GetColorants(), (Colorants{{}, {}, false, true}));
}

TYPED_TEST(ShadingPaintTest, TheParameterRunsOverTheDomainOfTheFunction)
{
    const auto shading = this->factory.SetFunction(MakeRamp(-2.0, 5.0)).Get();
    EXPECT_THAT(shading->GetParameterRange(), ElementsAre(-2.0, 5.0));
}

TYPED_TEST(ShadingPaintTest, AStatedParameterRangeCountsUntilTheNextFunction)
{
    this->factory.SetFunction(MakeRamp(-2.0, 5.0)).SetParameterRange({0.25, 0.75});
    EXPECT_THAT(this->factory.Get()->GetParameterRange(), ElementsAre(0.25, 0.75));
    this->factory.SetFunction(MakeRamp(-1.0, 1.0));
    EXPECT_THAT(this->factory.Get()->GetParameterRange(), ElementsAre(-1.0, 1.0));
}

TYPED_TEST(ShadingPaintTest, NeedsAFunctionOfOneInput)
{
    EXPECT_THROW(this->factory.Get(), std::invalid_argument);
    EXPECT_THROW(this->factory.SetFunction(nullptr).Get(), std::invalid_argument);
    EXPECT_THROW(this->factory.SetFunction(MakeFunctionOfTwoInputs()).Get(), std::invalid_argument);
    EXPECT_NE(this->factory.SetFunction(MakeRamp()).Get(), nullptr);
}

TEST(AxialShadingPaintTest, KeepsItsPointsInOrder)
{
    const auto shading =
        AxialShadingPaint::Factory(twoInks).SetFunction(MakeRamp()).SetPoints({{1, 2}, {3, 4}}).Get();
    EXPECT_EQ(shading->GetType(), Paint::Type::AxialShading);
    EXPECT_EQ(shading->GetPoints(), std::make_pair(Point(1, 2), Point(3, 4)));
}

TEST(RadialShadingPaintTest, KeepsItsCirclesInOrder)
{
    const auto shading = RadialShadingPaint::Factory(twoInks)
                             .SetFunction(MakeRamp())
                             .SetCenters({{1, 2}, {3, 4}})
                             .SetRadii({5, 6})
                             .Get();
    EXPECT_EQ(shading->GetType(), Paint::Type::RadialShading);
    EXPECT_EQ(shading->GetCenters(), std::make_pair(Point(1, 2), Point(3, 4)));
    EXPECT_EQ(shading->GetRadii().first.value, 5.0);
    EXPECT_EQ(shading->GetRadii().second.value, 6.0);
}

TEST(WholeShadingPaintTest, KeepsItsDefinition)
{
    const PdfObject definition = PdfObject::Dictionary({{"ShadingType", PdfObject::Integer(1)}});
    const auto shading = WholeShadingPaint::Factory(twoInks, definition).SetAntiAliased(true).Get();
    EXPECT_EQ(shading->GetType(), Paint::Type::OtherShading);
    EXPECT_EQ(shading->GetDefinition(), definition);
    EXPECT_EQ(shading->GetSeparationMapping(), twoInks);
    EXPECT_TRUE(shading->IsAntiAliased());
    EXPECT_EQ(shading->GetColorants().entries.size(), 2u);
}

PdfObject MakeTint(std::size_t inputs)
{
    return PdfObject::Stream(
        PdfObject::Dictionary(
            {{"FunctionType", PdfObject::Integer(4)}, {"Domain", Pairs(inputs)}, {"Range", Pairs(1)}}),
        inputs == 1 ? "{}" : "{ pop pop }");
}

TEST(SeparationMappingTest, NamesTheInksOfCmykInOrder)
{
    const Mapping expected{
        {{0, "Cyan"}, {1, "Magenta"}, {2, "Yellow"}, {3, "Black"}}, OrvColor::Unmapped, false, false};
    EXPECT_EQ(MakeSeparationMapping(*ColorSpace::DeviceCMYK(), false), expected);
}

TEST(SeparationMappingTest, TakesOverprint)
{
    EXPECT_TRUE(MakeSeparationMapping(*ColorSpace::DeviceCMYK(), true).overprint);
    EXPECT_EQ(MakeSeparationMapping(*ColorSpace::DeviceCMYK(), true).entries.size(), 4u);
}

TEST(SeparationMappingTest, GrayIsNoInk)
{
    EXPECT_EQ(MakeSeparationMapping(*ColorSpace::DeviceGray(), false),
              (Mapping{{{0, "DeviceGray Gray"}}, OrvColor::Unmapped, false, false}));
}

TEST(SeparationMappingTest, NamesComponentsAsAColorOfTheSpaceDoes)
{
    for (const auto& space : {ColorSpace::DeviceRGB(), ColorSpace::Lab({0.9, 1.0, 0.8})}) {
        const auto color = space->ToColorList(space->GetInitialComponents(), false, false);
        const auto mapping = MakeSeparationMapping(*space, false);
        ASSERT_EQ(mapping.entries.size(), 3u);
        for (std::size_t index = 0; index < 3; ++index) {
            EXPECT_EQ(mapping.entries[index].name, color.entries[index].name);
            EXPECT_EQ(mapping.entries[index].value, index);
        }
    }
}

TEST(SeparationMappingTest, NoneTakesAComponentWithoutAName)
{
    const auto space = ColorSpace::DeviceN({"Gold", "None", "Cut"}, ColorSpace::DeviceGray(), MakeTint(3));
    EXPECT_EQ(MakeSeparationMapping(*space, false),
              (Mapping{{{0, "Gold"}, {2, "Cut"}}, OrvColor::Unmapped, false, false}));
}

TEST(SeparationMappingTest, ASeparationIsItsName)
{
    const auto space = ColorSpace::Separation("Gold", ColorSpace::DeviceGray(), MakeTint(1));
    EXPECT_EQ(MakeSeparationMapping(*space, false),
              (Mapping{{{0, "Gold"}}, OrvColor::Unmapped, false, false}));
}

TEST(SeparationMappingTest, AllIsTheFlag)
{
    const auto space = ColorSpace::Separation("All", ColorSpace::DeviceGray(), MakeTint(1));
    EXPECT_EQ(MakeSeparationMapping(*space, true), (Mapping{{}, 0, true, true}));
}

TEST(SeparationMappingTest, RefusesSpacesThatNoShadingCanHave)
{
    EXPECT_THROW(MakeSeparationMapping(*ColorSpace::Pattern(), false), std::invalid_argument);
    EXPECT_THROW(MakeSeparationMapping(*ColorSpace::Indexed(ColorSpace::DeviceGray(), 1, "ab"), false),
                 std::invalid_argument);
}

} // namespace
} // namespace OrvPaint
