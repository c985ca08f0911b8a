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

PdfObject Sampled(double low, double high, const std::string& bytes)
{
    const auto pair = [](double first, double second) {
        return PdfObject::Array({PdfObject::Real(first), PdfObject::Real(second)});
    };
    return PdfObject::Stream(
        PdfObject::Dictionary(
            {{"FunctionType", PdfObject::Integer(0)}, {"Domain", pair(0, 1)}, {"Range", pair(low, high)}}),
        bytes);
}

TEST(WholeFunctionTest, KeepsItsDefinitionWithDomainAndRange)
{
    const auto function = WholeFunction::Make(Sampled(0, 0.5, "ab"));
    EXPECT_EQ(function->GetType(), Function::Type::Whole);
    EXPECT_EQ(function->GetDefinition(), Sampled(0, 0.5, "ab"));
    EXPECT_THAT(function->GetDomain(), ElementsAre(Pair{0, 1}));
    EXPECT_THAT(function->GetRange(), ElementsAre(Pair{0, 0.5}));
}

TEST(WholeFunctionTest, IsEqualByItsDefinition)
{
    EXPECT_EQ(*WholeFunction::Make(Sampled(0, 1, "ab")), *WholeFunction::Make(Sampled(0, 1, "ab")));
    EXPECT_NE(*WholeFunction::Make(Sampled(0, 1, "ab")), *WholeFunction::Make(Sampled(0, 1, "ac")));
}

TEST(WholeFunctionTest, IsZeroOnlyIfItsRangeLeavesNothingElse)
{
    EXPECT_TRUE(WholeFunction::Make(Sampled(0, 0, "ab"))->IsZero(0));
    EXPECT_FALSE(WholeFunction::Make(Sampled(0, 1, "ab"))->IsZero(0));
    EXPECT_TRUE(WholeFunction::Make(Sampled(0, 1, "ab"))->IsZero(1));
}

TEST(WholeFunctionTest, RefusesMalformedDefinitions)
{
    const PdfObject stream = Sampled(0, 1, "ab");
    EXPECT_THROW(WholeFunction::Make(PdfObject()), std::invalid_argument);
    EXPECT_THROW(WholeFunction::Make(stream.GetDictionary()), std::invalid_argument);
    auto entries = stream.GetEntries();
    entries.erase("Range");
    EXPECT_THROW(WholeFunction::Make(PdfObject::Stream(PdfObject::Dictionary(entries), "")),
                 std::invalid_argument);
}

TEST(WholeFunctionTest, PrintsItsDigest)
{
    std::ostringstream stream;
    stream << *WholeFunction::Make(Sampled(0, 1, "ab"));
    EXPECT_EQ(stream.str(),
              "Sampled(Domain [0 1], Range [0 1], 2 bytes " + Sampled(0, 1, "ab").GetDigestText() + ")");
}

} // namespace
} // namespace OrvPaint
