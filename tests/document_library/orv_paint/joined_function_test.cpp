// Arrays of functions with one output each, as shadings have them.

#include <orv_paint/exponential_function.h>
#include <orv_paint/function_definition.h>
#include <orv_paint/stitching_function.h>
#include <orv_paint/whole_function.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>

namespace OrvPaint
{
namespace
{

using OrvSys::PdfObject;
using testing::ElementsAre;
using Pair = std::array<double, 2>;

PdfObject Numbers(const std::vector<double>& numbers)
{
    PdfObject::Items items;
    for (const double number : numbers)
        items.push_back(PdfObject::Real(number));
    return PdfObject::Array(items);
}

PdfObject Exponential(double c0, double c1, double exponent = 1.0, PdfObject::Entries more = {})
{
    more.insert({{"FunctionType", PdfObject::Integer(2)},
                 {"Domain", Numbers({0, 1})},
                 {"C0", Numbers({c0})},
                 {"C1", Numbers({c1})},
                 {"N", PdfObject::Real(exponent)}});
    return PdfObject::Dictionary(more);
}

PdfObject Stitching(const std::vector<PdfObject>& parts, double bound,
                    const std::vector<double>& encode = {0, 1, 0, 1})
{
    return PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(3)},
                                  {"Domain", Numbers({0, 1})},
                                  {"Functions", PdfObject::Array(parts)},
                                  {"Bounds", Numbers({bound})},
                                  {"Encode", Numbers(encode)}});
}

PdfObject Sampled(double low, double high, const std::string& bytes)
{
    return PdfObject::Stream(PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(0)},
                                                    {"Domain", Numbers({0, 1})},
                                                    {"Range", Numbers({low, high})}}),
                             bytes);
}

std::shared_ptr<const Function> MakeOf(const std::vector<PdfObject>& functions)
{
    return MakeFunctionOfShading(PdfObject::Array(functions));
}

/// The class of what an array becomes.
Function::Type TypeOf(const std::vector<PdfObject>& functions)
{
    return MakeOf(functions)->GetType();
}

TEST(JoinedFunction, IsTheFunctionItselfWithoutAnArray)
{
    EXPECT_EQ(*MakeFunctionOfShading(Exponential(0, 1)), *MakeFunction(Exponential(0, 1)));
    EXPECT_EQ(*MakeOf({Exponential(0, 1)}), *MakeFunction(Exponential(0, 1)));
    EXPECT_EQ(*MakeOf({Sampled(0, 1, "a")}), *MakeFunction(Sampled(0, 1, "a")));
}

TEST(JoinedFunction, PutsTheOutputsOfExponentialsInOrder)
{
    const auto joined = MakeOf({Exponential(0, 1, 2), Exponential(0.5, 0.25, 2), Exponential(1, 0, 2)});
    ASSERT_EQ(joined->GetType(), Function::Type::Exponential);
    const auto& exponential = static_cast<const ExponentialFunction&>(*joined);
    EXPECT_THAT(exponential.GetC0(), ElementsAre(0.0f, 0.5f, 1.0f));
    EXPECT_THAT(exponential.GetC1(), ElementsAre(1.0f, 0.25f, 0.0f));
    EXPECT_EQ(exponential.GetN(), 2.0);
    EXPECT_FALSE(exponential.HasRange());
}

TEST(JoinedFunction, StaysAnArrayIfExponentsOrDomainsDiffer)
{
    EXPECT_EQ(TypeOf({Exponential(0, 1, 1), Exponential(0, 1, 2)}), Function::Type::Whole);
    EXPECT_EQ(TypeOf({Exponential(0, 1), Exponential(0, 1, 1, {{"Domain", Numbers({0, 2})}})}),
              Function::Type::Whole);
}

TEST(JoinedFunction, JoinsRangesThatAllState)
{
    const auto joined = MakeOf({Exponential(0, 1, 1, {{"Range", Numbers({0, 0.5})}}),
                                Exponential(0, 1, 1, {{"Range", Numbers({0.25, 1})}})});
    ASSERT_EQ(joined->GetType(), Function::Type::Exponential);
    EXPECT_THAT(joined->GetRange(), ElementsAre(Pair{0, 0.5}, Pair{0.25, 1}));
}

TEST(JoinedFunction, StaysAnArrayIfSomeStateARange)
{
    const auto kept = MakeOf({Exponential(0, 1), Exponential(0, 1, 1, {{"Range", Numbers({0, 1})}})});
    EXPECT_EQ(kept->GetType(), Function::Type::Whole);
    EXPECT_EQ(kept->GetRange().size(), 2u);
    EXPECT_EQ(kept->GetRange()[1], (Pair{0, 1}));
}

TEST(JoinedFunction, JoinsStitchingsPartByPart)
{
    const auto joined = MakeOf({Stitching({Exponential(0, 1), Exponential(1, 0)}, 0.25),
                                Stitching({Exponential(0.5, 0.5), Exponential(0.5, 0.75)}, 0.25)});
    ASSERT_EQ(joined->GetType(), Function::Type::Stitching);
    const auto& stitching = static_cast<const StitchingFunction&>(*joined);
    ASSERT_EQ(stitching.GetFunctions().size(), 2u);
    const auto& second = static_cast<const ExponentialFunction&>(*stitching.GetFunctions()[1]);
    EXPECT_THAT(second.GetC0(), ElementsAre(1.0f, 0.5f));
    EXPECT_THAT(second.GetC1(), ElementsAre(0.0f, 0.75f));
    EXPECT_THAT(stitching.GetBounds(), ElementsAre(0.25));
}

TEST(JoinedFunction, StaysAnArrayIfStitchingsDiffer)
{
    const std::vector<PdfObject> parts = {Exponential(0, 1), Exponential(1, 0)};
    const std::vector<PdfObject> others = {Exponential(0, 1, 3), Exponential(1, 0)};
    EXPECT_EQ(TypeOf({Stitching(parts, 0.25), Stitching(parts, 0.5)}), Function::Type::Whole);
    EXPECT_EQ(TypeOf({Stitching(parts, 0.25), Stitching(parts, 0.25, {1, 0, 0, 1})}), Function::Type::Whole);
    EXPECT_EQ(TypeOf({Stitching(parts, 0.25), Stitching(others, 0.25)}), Function::Type::Whole);
    EXPECT_EQ(TypeOf({Stitching(parts, 0.25), Exponential(0, 1)}), Function::Type::Whole);
}

TEST(JoinedFunction, KeepsAnArrayAsItIsDefined)
{
    const PdfObject definition = PdfObject::Array({Exponential(0, 1, 1), Sampled(0, 0.5, "ab")});
    const auto kept = MakeFunctionOfShading(definition);
    EXPECT_EQ(GetFunctionDefinition(*kept), definition);
    EXPECT_EQ(*kept, *MakeFunctionOfShading(definition));
    EXPECT_NE(*kept, *MakeOf({Sampled(0, 0.5, "ab"), Exponential(0, 1, 1)}));
    EXPECT_EQ(kept->GetDepth(), 1u);
}

TEST(JoinedFunction, IsDefinedWhereAllOfAnArrayAre)
{
    const auto kept = MakeOf({Exponential(0, 1, 1, {{"Domain", Numbers({-1, 0.75})}}),
                              Exponential(0, 1, 1, {{"Domain", Numbers({0.25, 2})}})});
    EXPECT_THAT(kept->GetDomain(), ElementsAre(Pair{0.25, 0.75}));
}

TEST(JoinedFunction, KnowsWhichFunctionOfAnArrayIsZero)
{
    const auto kept = MakeOf({Exponential(0, 0, 1), Exponential(0, 1, 2), Sampled(0, 0, "a")});
    EXPECT_TRUE(kept->IsZero(0));
    EXPECT_FALSE(kept->IsZero(1));
    EXPECT_TRUE(kept->IsZero(2));
    EXPECT_TRUE(kept->IsZero(3));
}

TEST(JoinedFunction, PrintsTheFunctionsOfAnArray)
{
    std::ostringstream text;
    text << *MakeOf({Exponential(0, 1, 1), Exponential(0, 1, 2)});
    std::ostringstream parts;
    parts << "Array(" << *MakeFunction(Exponential(0, 1, 1)) << ", " << *MakeFunction(Exponential(0, 1, 2))
          << ")";
    EXPECT_EQ(text.str(), parts.str());
}

TEST(JoinedFunction, RefusesMalformedArrays)
{
    EXPECT_THROW(MakeOf({}), std::invalid_argument);
    EXPECT_THROW(MakeOf({PdfObject::Integer(1)}), std::invalid_argument);
    EXPECT_THROW(MakeOf({PdfObject::Array({Exponential(0, 1)}), Exponential(0, 1)}), std::invalid_argument);
    const PdfObject two = Exponential(0, 1, 1, {{"C0", Numbers({0, 0})}, {"C1", Numbers({1, 1})}});
    EXPECT_THROW(MakeOf({two, Exponential(0, 1, 2)}), std::invalid_argument);
}

TEST(JoinedFunction, IsNotKeptWholeWhereItCanBeOne)
{
    EXPECT_THROW(WholeFunction::Make(PdfObject::Array({Exponential(0, 1), Exponential(1, 0)})),
                 std::invalid_argument);
}

} // namespace
} // namespace OrvPaint
