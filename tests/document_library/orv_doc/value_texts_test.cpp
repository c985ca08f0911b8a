// Equality and text of the small values of a document.

#include <gtest/gtest.h>

#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

#include <orv_color/color_space.h>
#include <orv_doc/blend_color_space.h>
#include <orv_doc/halftone_set.h>
#include <orv_doc/separation.h>
#include <orv_doc/text_character.h>
#include <orv_doc/transfer_function_set.h>
#include <orv_paint/exponential_function.h>

namespace
{

using namespace OrvDoc;
using OrvColor::ColorSpace;

/// Numbers with commas for points, and dots between thousands.
class OtherNumbers : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

template <typename Value>
std::string Print(const Value& value)
{
    std::ostringstream stream;
    stream.imbue(std::locale(std::locale::classic(), new OtherNumbers));
    stream << std::setprecision(2) << std::showpos << value;
    return stream.str();
}

OrvColor::Representation MakeCmyk(float cyan, float magenta, float yellow, float black)
{
    OrvColor::Representation color;
    color.SetCmyk({cyan, magenta, yellow, black});
    return color;
}

using Entries = std::vector<Separation::Entry>;

TEST(SeparationEntry, IsEqualWithTheSameNameAndAlternate)
{
    const Separation::Entry gold("Gold", MakeCmyk(0, 0.2f, 1, 0));
    EXPECT_TRUE(gold == Separation::Entry("Gold", MakeCmyk(0, 0.2f, 1, 0)));
    EXPECT_TRUE(gold != Separation::Entry("gold", MakeCmyk(0, 0.2f, 1, 0)));
    EXPECT_TRUE(gold != Separation::Entry("Gold", MakeCmyk(0, 0.25f, 1, 0)));
    EXPECT_TRUE(gold != Separation::Entry("Gold", {}));
}

TEST(SeparationEntry, IsEqualWhateverSpaceItCameFrom)
{
    Separation::Entry gold("Gold", {});
    const Separation::Entry copy = gold;
    gold.SetColorSpace(ColorSpace::DeviceCMYK());
    EXPECT_TRUE(gold == copy);
    EXPECT_EQ(copy.GetColorSpace(), nullptr);
}

TEST(SeparationEntry, PrintsNameAndAlternate)
{
    OrvColor::Representation gray;
    gray.SetGray({0.5f});
    OrvColor::Representation rgb;
    rgb.SetRgb({0.0f, 0.5f, 1.0f});
    OrvColor::Representation lab;
    lab.SetLab({50.0f, -1234.5f, 0.1f});
    const Entries entries = {
        {"Gold", MakeCmyk(0, 0.2f, 1, 0)}, {"Cut", {}}, {"a", gray}, {"b", rgb}, {"c", lab}};
    EXPECT_EQ(Print(entries),
              "[Gold (CMYK 0 0.2 1 0), Cut (none), a (Gray 0.5), b (RGB 0 0.5 1), c (Lab 50 -1234.5 0.1)]");
    EXPECT_EQ(Print(Entries()), "[]");
}

TEST(BlendColorSpace, IsNoneAtFirst)
{
    EXPECT_EQ(BlendColorSpace().GetColorSpace(), nullptr);
    EXPECT_TRUE(BlendColorSpace() == BlendColorSpace(nullptr));
    EXPECT_EQ(Print(BlendColorSpace()), "None");
}

TEST(BlendColorSpace, IsEqualWithTheSameDefinition)
{
    const BlendColorSpace gray(ColorSpace::CalGray({0.9, 1, 1.1}));
    EXPECT_TRUE(gray == BlendColorSpace(ColorSpace::CalGray({0.9, 1, 1.1})));
    EXPECT_TRUE(gray != BlendColorSpace(ColorSpace::CalGray({0.9, 1, 1.2})));
    EXPECT_TRUE(gray != BlendColorSpace());
    EXPECT_TRUE(BlendColorSpace() != gray);
}

TEST(BlendColorSpace, PrintsTheFamilyAndADigestOfParameters)
{
    EXPECT_EQ(Print(BlendColorSpace(ColorSpace::DeviceCMYK())), "DeviceCMYK");
    const auto space = ColorSpace::CalGray({0.9, 1, 1.1});
    EXPECT_EQ(Print(BlendColorSpace(space)), "CalGray(" + space->GetDefinition().GetDigestText() + ")");
    EXPECT_NE(Print(BlendColorSpace(space)), Print(BlendColorSpace(ColorSpace::CalGray({0.9, 1, 1.2}))));
}

TEST(BlendColorSpace, RefusesSpacesThatNothingCanBeBlendedIn)
{
    const auto gray = ColorSpace::DeviceGray();
    const OrvSys::PdfObject identity = OrvSys::PdfObject::Dictionary(
        {{"FunctionType", OrvSys::PdfObject::Integer(2)},
         {"Domain", OrvSys::PdfObject::Array({OrvSys::PdfObject::Integer(0), OrvSys::PdfObject::Integer(1)})},
         {"N", OrvSys::PdfObject::Integer(1)}});
    EXPECT_THROW(BlendColorSpace(ColorSpace::Lab({0.9, 1, 1.1})), std::invalid_argument);
    EXPECT_THROW(BlendColorSpace(ColorSpace::Pattern()), std::invalid_argument);
    EXPECT_THROW(BlendColorSpace(ColorSpace::Indexed(gray, 0, std::string(1, '\0'))), std::invalid_argument);
    EXPECT_THROW(BlendColorSpace(ColorSpace::Separation("Gold", gray, identity)), std::invalid_argument);
    EXPECT_THROW(BlendColorSpace(ColorSpace::DeviceN({"Gold"}, gray, identity)), std::invalid_argument);
    EXPECT_NO_THROW(BlendColorSpace{gray});
    EXPECT_NO_THROW(BlendColorSpace(ColorSpace::DeviceRGB()));
    EXPECT_NO_THROW(BlendColorSpace(ColorSpace::CalRGB({0.9, 1, 1.1})));
}

TEST(HalftoneSet, IsEqualWithTheSameNameAndDefinition)
{
    const HalftoneSet round("Round", OrvSys::PdfObject::Integer(1));
    EXPECT_TRUE(round == HalftoneSet("Round", OrvSys::PdfObject::Integer(1)));
    EXPECT_FALSE(round == HalftoneSet("Square", OrvSys::PdfObject::Integer(1)));
    EXPECT_FALSE(round == HalftoneSet("Round", OrvSys::PdfObject::Integer(2)));
    EXPECT_EQ(Print(round), "\"Round\" (" + OrvSys::PdfObject::Integer(1).GetDigestText() + ")");
}

TEST(TextCharacters, PrintCodesAndGlyphs)
{
    TextCharacter plain;
    plain.character = {65, 3600};
    TextCharacter full;
    full.character = {66, 37};
    full.source = 1234567;
    full.flags = 2;
    EXPECT_EQ(Print(std::vector<TextCharacter>{plain, full}), "[65:3600, 66:37 source 1234567 flags 2]");
    EXPECT_EQ(Print(std::vector<TextCharacter>()), "[]");
}

std::shared_ptr<const OrvPaint::Function> MakeFunction(double exponent)
{
    return OrvPaint::ExponentialFunction::Factory({0.0f}, {1.0f}, exponent).Get();
}

TEST(TransferFunctionSet, IsEqualWithFunctionsThatComputeTheSame)
{
    const TransferFunctionSet set(MakeFunction(1), {{"Cyan", MakeFunction(2)}, {"Gold", nullptr}});
    EXPECT_TRUE(set == TransferFunctionSet(MakeFunction(1), {{"Cyan", MakeFunction(2)}, {"Gold", nullptr}}));
    EXPECT_TRUE(set != TransferFunctionSet(MakeFunction(3), {{"Cyan", MakeFunction(2)}, {"Gold", nullptr}}));
    EXPECT_TRUE(set != TransferFunctionSet(nullptr, {{"Cyan", MakeFunction(2)}, {"Gold", nullptr}}));
    EXPECT_TRUE(set != TransferFunctionSet(MakeFunction(1), {{"Cyan", MakeFunction(3)}, {"Gold", nullptr}}));
    EXPECT_TRUE(set != TransferFunctionSet(MakeFunction(1), {{"Gold", nullptr}, {"Cyan", MakeFunction(2)}}));
    EXPECT_TRUE(set != TransferFunctionSet(MakeFunction(1), {{"Cyan", MakeFunction(2)}}));
}

} // namespace
