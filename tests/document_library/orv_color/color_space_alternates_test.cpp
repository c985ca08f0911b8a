#include <orv_color/color_space.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace OrvColor
{
namespace
{

using OrvSys::PdfObject;
using testing::ElementsAre;

constexpr std::array<double, 3> D50 = {0.9642, 1.0, 0.8249};

PdfObject Reals(const std::vector<double>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(items);
}

PdfObject Exponential(const std::vector<double>& c0, const std::vector<double>& c1)
{
    return PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                  {"Domain", Reals({0, 1})},
                                  {"C0", Reals(c0)},
                                  {"C1", Reals(c1)},
                                  {"N", PdfObject::Integer(1)}});
}

PdfObject Calculator(std::size_t inputs, std::size_t outputs, const std::string& program)
{
    std::vector<double> domain;
    std::vector<double> range;
    for (std::size_t index = 0; index < inputs; ++index)
        domain.insert(domain.end(), {0, 1});
    for (std::size_t index = 0; index < outputs; ++index)
        range.insert(range.end(), {0, 1});
    return PdfObject::Stream(
        PdfObject::Dictionary(
            {{"FunctionType", PdfObject::Integer(4)}, {"Domain", Reals(domain)}, {"Range", Reals(range)}}),
        program);
}

std::vector<std::string> Print(const std::vector<ColorSpace::Alternate>& alternates)
{
    std::vector<std::string> texts;
    for (const auto& alternate : alternates) {
        std::ostringstream stream;
        stream << alternate.name << ": " << alternate.representation;
        texts.push_back(stream.str());
    }
    return texts;
}

TEST(GetAlternatesTest, SeparationShowsItsFullTint)
{
    const auto space = ColorSpace::Separation("Spot", ColorSpace::DeviceCMYK(),
                                              Exponential({0, 0, 0, 0}, {0, 0.5, 1, 0.25}));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("Spot: Cmyk(0, 0.5, 1, 0.25)"));
}

TEST(GetAlternatesTest, LabAlternatesKeepTheirRange)
{
    const auto space =
        ColorSpace::Separation("Spot", ColorSpace::Lab(D50), Exponential({100, 0, 0}, {50, -20, 300}));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("Spot: Lab(50, -20, 100)"));
}

TEST(GetAlternatesTest, CalibratedAlternatesCountAsTheirModel)
{
    const auto space = ColorSpace::Separation("Spot", ColorSpace::CalGray(D50), Exponential({1}, {0.5}));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("Spot: Gray(0.5)"));
}

TEST(GetAlternatesTest, DeviceNShowsEachColorantAlone)
{
    const auto space = ColorSpace::DeviceN({"A", "None", "B"}, ColorSpace::DeviceRGB(),
                                           Calculator(3, 3, "{ exch pop 0.5 }"));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("A: Rgb(1, 0, 0.5)", "B: Rgb(0, 1, 0.5)"));
}

TEST(GetAlternatesTest, AllAndOtherFamiliesHaveNone)
{
    EXPECT_TRUE(ColorSpace::Separation("All", ColorSpace::DeviceGray(), Exponential({1}, {0}))
                    ->GetAlternates()
                    .empty());
    EXPECT_TRUE(ColorSpace::DeviceCMYK()->GetAlternates().empty());
}

TEST(GetAlternatesTest, StaysEmptyWhereTheTransformCannotBeEvaluated)
{
    const auto space =
        ColorSpace::Separation("Spot", ColorSpace::DeviceGray(), Calculator(1, 1, "{ nonsense }"));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("Spot: None"));
}

TEST(GetAlternatesTest, StaysEmptyWhereTheTransformHasAWrongNumberOfOutputs)
{
    const auto space = ColorSpace::Separation("Spot", ColorSpace::DeviceCMYK(), Exponential({0, 0}, {1, 1}));
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("Spot: None"));
}

TEST(GetAlternatesTest, DeviceNFallsBackOnTheColorantsOfItsAttributes)
{
    const auto spot = ColorSpace::Separation("A", ColorSpace::DeviceGray(), Exponential({1}, {0.5}));
    const PdfObject attributes = PdfObject::Dictionary(
        {{"Colorants", PdfObject::Dictionary({{"A", spot->GetDefinition()}, {"B", PdfObject::Integer(1)}})}});
    const auto space = ColorSpace::DeviceN({"A", "B"}, ColorSpace::DeviceRGB(),
                                           Calculator(2, 3, "{ nonsense }"), attributes);
    EXPECT_THAT(Print(space->GetAlternates()), ElementsAre("A: Gray(0.5)", "B: None"));
}

} // namespace
} // namespace OrvColor
