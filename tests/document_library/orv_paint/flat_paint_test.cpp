#include <orv_paint/flat_paint.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>

namespace OrvPaint
{
namespace
{

using OrvColor::ColorSpace;
using testing::ElementsAre;
using testing::IsEmpty;
using Color = OrvColor::ColorList<OrvColor::ColorPolicy>;
using Colorants = OrvColor::ColorList<OrvColor::ColorantPolicy>;

const Color Spot{{{0.5f, "Spot"}, {0.0f, "Black"}}, 0.25f, true, false};

TEST(FlatPaintTest, KeepsItsListUnchanged)
{
    const auto paint = FlatPaint::Factory(Spot, nullptr).Get();
    EXPECT_EQ(paint->GetColor(), Spot);
    EXPECT_EQ(paint->GetType(), Paint::Type::Flat);
}

TEST(FlatPaintTest, ColorantsAreNamesAndFlags)
{
    const std::shared_ptr<const Paint> paint = GetFlatPaint(Spot, nullptr);
    EXPECT_EQ(paint->GetColorants(), (Colorants{{{{}, "Spot"}, {{}, "Black"}}, {}, true, false}));
}

TEST(FlatPaintTest, ColorantsOfAllCarryTheFlag)
{
    const auto paint = GetFlatPaint(Color{{}, 1.0f, false, true}, nullptr);
    EXPECT_EQ(paint->GetColorants(), (Colorants{{}, {}, false, true}));
}

TEST(FlatPaintTest, AListHasNoNativeSpace)
{
    const auto paint = GetFlatPaint(Spot, nullptr);
    EXPECT_EQ(paint->GetNativeSpace(), nullptr);
    EXPECT_THAT(paint->GetNativeComponents(), IsEmpty());
    EXPECT_FALSE(paint->IsNonzeroOverprint());
}

TEST(FlatPaintTest, NativeColourIsKeptAsGiven)
{
    const auto paint = FlatPaint::Factory(ColorSpace::DeviceRGB(), {0.5f, 2.0f, -1.0f}, false, true).Get();
    EXPECT_EQ(paint->GetNativeSpace(), ColorSpace::DeviceRGB());
    EXPECT_THAT(paint->GetNativeComponents(), ElementsAre(0.5f, 2.0f, -1.0f));
    EXPECT_TRUE(paint->IsNonzeroOverprint());
}

TEST(FlatPaintTest, NativeColourGivesItsList)
{
    const auto paint =
        FlatPaint::Factory(ColorSpace::DeviceCMYK(), {0.0f, 0.5f, 0.0f, 0.0f}, true, true).Get();
    EXPECT_EQ(paint->GetColor(), (Color{{{0.5f, "Magenta"}}, 0.0f, true, false}));
}

TEST(FlatPaintTest, NativeColourNeedsASpace)
{
    EXPECT_THROW(FlatPaint::Factory(nullptr, {}, false, false), std::invalid_argument);
}

TEST(FlatPaintTest, FactoryGivesThePaintAgain)
{
    const FlatPaint::Factory factory(Spot, nullptr);
    EXPECT_EQ(factory.Get(), factory.Get());
}

TEST(PaintTypeTest, PrintsItsName)
{
    std::ostringstream stream;
    for (std::uint32_t value = 1; value <= 6; ++value)
        stream << static_cast<Paint::Type>(value) << ' ';
    EXPECT_EQ(stream.str(), "Flat AxialShading RadialShading OtherShading TilingPattern Form ");
}

TEST(PaintTypeTest, PrintsNothingForAnUnknownValue)
{
    std::ostringstream stream;
    stream << static_cast<Paint::Type>(0) << static_cast<Paint::Type>(7);
    EXPECT_EQ(stream.str(), "");
}

} // namespace
} // namespace OrvPaint
