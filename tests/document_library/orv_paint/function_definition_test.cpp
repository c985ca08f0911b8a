#include <orv_paint/function_definition.h>

#include <orv_paint/exponential_function.h>
#include <orv_paint/stitching_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace OrvPaint
{
namespace
{

using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::HasSubstr;

PdfObject Unit()
{
    return PdfObject::Array({PdfObject::Integer(0), PdfObject::Integer(1)});
}

PdfObject Exponential(PdfObject::Entries more = {})
{
    more.emplace("FunctionType", PdfObject::Integer(2));
    more.emplace("Domain", Unit());
    more.emplace("N", PdfObject::Integer(1));
    return PdfObject::Dictionary(more);
}

PdfObject Stitching(PdfObject::Entries more = {})
{
    more.emplace("FunctionType", PdfObject::Integer(3));
    more.emplace("Domain", Unit());
    more.emplace("Functions", PdfObject::Array({Exponential()}));
    more.emplace("Bounds", PdfObject::Array({}));
    more.emplace("Encode", Unit());
    return PdfObject::Dictionary(more);
}

std::string Problem(const PdfObject& definition)
{
    try {
        MakeFunction(definition);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "none";
}

TEST(MakeFunctionTest, ExponentialHasTheLargestComponentForALargerOne)
{
    const auto array = [](const std::string& number) { return PdfObject::Array({PdfObject::Real(number)}); };
    const std::string digits = "1" + std::string(45, '0') + ".0";
    const auto function = MakeFunction(Exponential({{"C0", array("-" + digits)}, {"C1", array(digits)}}));
    const auto& exponential = static_cast<const ExponentialFunction&>(*function);
    constexpr float largest = std::numeric_limits<float>::max();
    EXPECT_THAT(exponential.GetC0(), ElementsAre(-largest));
    EXPECT_THAT(exponential.GetC1(), ElementsAre(largest));
    EXPECT_EQ(*MakeFunction(GetFunctionDefinition(*function)), *function);
}

TEST(MakeFunctionTest, ExponentialHasItsDefaults)
{
    const auto function = MakeFunction(Exponential());
    ASSERT_EQ(function->GetType(), Function::Type::Exponential);
    const auto& exponential = static_cast<const ExponentialFunction&>(*function);
    EXPECT_THAT(exponential.GetC0(), ElementsAre(0.0f));
    EXPECT_THAT(exponential.GetC1(), ElementsAre(1.0f));
    EXPECT_FALSE(exponential.HasRange());
}

TEST(MakeFunctionTest, StitchingHasItsParts)
{
    const auto function = MakeFunction(Stitching());
    ASSERT_EQ(function->GetType(), Function::Type::Stitching);
    const auto& stitching = static_cast<const StitchingFunction&>(*function);
    ASSERT_EQ(stitching.GetFunctions().size(), 1u);
    EXPECT_EQ(*stitching.GetFunctions()[0], *MakeFunction(Exponential()));
}

TEST(MakeFunctionTest, OtherTypesAreKeptWhole)
{
    const PdfObject definition = PdfObject::Stream(
        PdfObject::Dictionary(
            {{"FunctionType", PdfObject::Integer(4)}, {"Domain", Unit()}, {"Range", Unit()}}),
        "{}");
    const auto function = MakeFunction(definition);
    EXPECT_EQ(function->GetType(), Function::Type::Whole);
    EXPECT_EQ(GetFunctionDefinition(*function), definition);
}

TEST(MakeFunctionTest, MalformedDefinitionsSayWhatIsWrong)
{
    const PdfObject name = PdfObject::Name("X");
    EXPECT_THAT(Problem(PdfObject()), HasSubstr("unknown type 'null'"));
    EXPECT_THAT(Problem(Exponential({{"FunctionType", PdfObject::Integer(1)}})),
                HasSubstr("unknown type '1'"));
    EXPECT_THAT(Problem(Exponential({{"N", name}})), HasSubstr("'/X' for a number under N"));
    EXPECT_THAT(Problem(Exponential({{"Domain", PdfObject()}})),
                HasSubstr("one pair of numbers under Domain"));
    EXPECT_THAT(Problem(Exponential({{"C0", name}})), HasSubstr("no array under C0"));
    EXPECT_THAT(Problem(Exponential({{"Range", PdfObject::Array({name})}})), HasSubstr("'/X' for a number"));
    EXPECT_THAT(Problem(Exponential({{"Range", PdfObject::Array({PdfObject::Integer(1)})}})),
                HasSubstr("odd count of numbers under Range"));
    EXPECT_THAT(Problem(Stitching({{"Functions", name}})), HasSubstr("no array under Functions"));
    EXPECT_THAT(Problem(Stitching({{"Bounds", PdfObject::Array({PdfObject::Integer(1)})}})),
                HasSubstr("1 parts has 1 bounds"));
}

TEST(FunctionDefinitionTest, ExponentialComesBack)
{
    const auto function = ExponentialFunction::Factory({0.1f, 0.0f}, {0.7f, 1.0f / 3.0f}, 1.0 / 3.0)
                              .SetDomain({-0.1, 0.3})
                              .SetRange({{0.0, 1.0}, {0.2, 0.4}})
                              .Get();
    EXPECT_EQ(*MakeFunction(GetFunctionDefinition(*function)), *function);
}

TEST(FunctionDefinitionTest, ComponentsAreWrittenAsTheShortestDecimalOfTheFloat)
{
    const auto function = ExponentialFunction::Factory({0.1f}, {0.7f}, 1.0).Get();
    EXPECT_EQ(GetFunctionDefinition(*function).Serialize(),
              "<</C0 [0.1] /C1 [0.7] /Domain [0 1] /FunctionType 2 /N 1>>");
}

TEST(FunctionDefinitionTest, StitchingComesBackWithEitherFormOfBounds)
{
    const std::shared_ptr<const Function> part = ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).Get();
    const auto inner = StitchingFunction::Factory({part, part}, {0.3}).SetEncode({{0, 1}, {1, 0}}).Get();
    const auto outer = StitchingFunction::Factory({part, part}, {-1.0, 0.3, 2.0}).Get();
    EXPECT_EQ(*MakeFunction(GetFunctionDefinition(*inner)), *inner);
    EXPECT_EQ(*MakeFunction(GetFunctionDefinition(*outer)), *outer);
}

TEST(FunctionDefinitionTest, AFileGetsTheInnerBoundsAlone)
{
    const std::shared_ptr<const Function> part = ExponentialFunction::Factory({0.0f}, {1.0f}, 1.0).Get();
    const auto outer = StitchingFunction::Factory({part, part}, {-1.0, 0.3, 2.0}).Get();
    const PdfObject definition = GetFunctionDefinition(*outer);
    EXPECT_EQ(definition.Find("Bounds").Serialize(), "[0.3]");
    EXPECT_EQ(definition.Find("Domain").Serialize(), "[-1 2]");
}

TEST(FunctionDefinitionTest, NumbersThatAreNotFiniteHaveNoDefinition)
{
    const auto function =
        ExponentialFunction::Factory({std::numeric_limits<float>::quiet_NaN()}, {1.0f}, 1.0).Get();
    EXPECT_THROW(GetFunctionDefinition(*function), std::invalid_argument);
}

} // namespace
} // namespace OrvPaint
