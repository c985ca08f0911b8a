#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_paint/exponential_function.h>
#include <orv_paint/whole_function.h>

#include "document_library/pdf/reader/interpreter_test_support.h"
#include "document_library/pdf/transfer_sets.h"

namespace
{

using OrvDoc::TransferFunctionSet;
using OrvPdf::Testing::AreEqual;
using OrvPdf::Testing::Reading;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string line = " 0 0 m 1 0 l f ";

PdfObject Numbers(const std::vector<int>& numbers)
{
    PdfObject::Items items;
    for (const int number : numbers)
        items.push_back(PdfObject::Integer(number));
    return PdfObject::Array(items);
}

PdfObject Power(int exponent)
{
    return PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                  {"Domain", Numbers({0, 1})},
                                  {"N", PdfObject::Integer(exponent)}});
}

PdfObject Calculator(int inputs = 1)
{
    return PdfObject::Stream(
        PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(4)},
                               {"Domain", inputs == 1 ? Numbers({0, 1}) : Numbers({0, 1, 0, 1})},
                               {"Range", Numbers({0, 1})}}),
        inputs == 1 ? "{ 1 exch sub }" : "{ add }");
}

std::shared_ptr<const OrvPaint::Function> PowerFunction(int exponent)
{
    return OrvPaint::ExponentialFunction::Factory({0.0F}, {1.0F}, exponent).Get();
}

const PdfObject identity = PdfObject::Name("Identity");

class TransferFunctions : public testing::Test
{
protected:
    void Define(const std::string& name, PdfObject::Entries parameters)
    {
        reading.resources.states[name] = PdfObject::Dictionary(std::move(parameters));
    }

    boost::optional<TransferFunctionSet> Read(const std::string& stream)
    {
        reading.Read(stream);
        return reading.content->GetTransferFunctionSet();
    }

    boost::optional<TransferFunctionSet> Under(PdfObject::Entries parameters)
    {
        Define("G", std::move(parameters));
        return Read("/G gs" + line);
    }

    Reading reading;
};

TEST_F(TransferFunctions, AreThoseThatTextIsPaintedUnder)
{
    Define("G", {{"TR", Power(2)}});
    Define("H", {{"TR2", PdfObject::Name("Default")}});
    reading.Read("/G gs BT /F 10 Tf (A) Tj ET /H gs");
    EXPECT_TRUE(reading.content->GetTransferFunctionSet());
    reading.Read("/G gs BT /F 10 Tf 3 Tr (A) Tj ET /H gs");
    EXPECT_FALSE(reading.content->GetTransferFunctionSet());
}

TEST_F(TransferFunctions, OneFunctionIsTheDefaultFunction)
{
    EXPECT_TRUE(AreEqual(Under({{"TR", Power(2)}}), TransferFunctionSet(PowerFunction(2), {})));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(TransferFunctions, ACalculatorStaysWhole)
{
    const auto given = Under({{"TR", Calculator()}});
    ASSERT_TRUE(given);
    ASSERT_EQ(given->GetDefaultTransferFunction()->GetType(), OrvPaint::Function::Type::Whole);
    EXPECT_EQ(
        static_cast<const OrvPaint::WholeFunction&>(*given->GetDefaultTransferFunction()).GetDefinition(),
        Calculator());
}

TEST_F(TransferFunctions, FourFunctionsAreThoseOfTheProcessInksInTheirOrder)
{
    EXPECT_TRUE(AreEqual(Under({{"TR", PdfObject::Array({Power(2), identity, Power(4), Power(5)})}}),
                         TransferFunctionSet(nullptr, {{"Cyan", PowerFunction(2)},
                                                       {"Magenta", nullptr},
                                                       {"Yellow", PowerFunction(4)},
                                                       {"Black", PowerFunction(5)}})));
}

TEST_F(TransferFunctions, IdentityAndDefaultAreNone)
{
    EXPECT_TRUE(AreEqual(Under({{"TR", identity}}), boost::none));
    EXPECT_TRUE(AreEqual(Under({{"TR2", PdfObject::Name("Default")}}), boost::none));
    EXPECT_TRUE(
        AreEqual(Under({{"TR", PdfObject::Array({identity, identity, identity, identity})}}), boost::none));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(TransferFunctions, TheNewerKeyCounts)
{
    EXPECT_TRUE(
        AreEqual(Under({{"TR", Power(2)}, {"TR2", Power(3)}}), TransferFunctionSet(PowerFunction(3), {})));
    EXPECT_TRUE(AreEqual(Under({{"TR", Power(2)}, {"TR2", PdfObject::Name("Default")}}), boost::none));
}

TEST_F(TransferFunctions, OurKeyCountsBeforeTheOthers)
{
    const auto own = PdfObject::Dictionary(
        {{"Default", Power(3)},
         {"Names", PdfObject::Array({PdfObject::String("Gold"), PdfObject::String("Red")})},
         {"Functions", PdfObject::Array({identity, Power(4)})}});
    EXPECT_TRUE(
        AreEqual(Under({{"TR", Power(2)}, {"TR2", Power(5)}, {"OrvTransferFunctions", own}}),
                 TransferFunctionSet(PowerFunction(3), {{"Gold", nullptr}, {"Red", PowerFunction(4)}})));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(TransferFunctions, OneSetForAllThatIsPaintedIsThatOfTheContent)
{
    Define("A", {{"TR", Power(2)}});
    EXPECT_TRUE(Read("0 0 m 1 0 l n q /A gs" + line + line + "Q /A gs" + line + "0 0 m 1 0 l n"));
    EXPECT_THAT(reading.result.errors, IsEmpty());
    EXPECT_FALSE(reading.result.hasUnmodelled);
}

TEST_F(TransferFunctions, EqualSetsAreOne)
{
    Define("A", {{"TR", Power(2)}});
    Define("B", {{"TR2", Power(2)}});
    Define("C", {{"TR", PdfObject::Dictionary({{"FunctionType", PdfObject::Integer(2)},
                                               {"Domain", Numbers({0, 1})},
                                               {"C0", Numbers({0})},
                                               {"N", PdfObject::Integer(2)}})}});
    EXPECT_TRUE(Read("/A gs" + line + "/B gs" + line + "/C gs" + line + "/B gs" + line));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(TransferFunctions, ASetFromTheMiddleOnIsTold)
{
    Define("A", {{"TR", Power(2)}});
    EXPECT_TRUE(AreEqual(Read("0 0 m 1 0 l f /A gs" + line + line), boost::none));
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_THAT(
        reading.result.errors,
        ElementsAre("operator gs: transfer functions of a part of the content are not modelled, byte 14"));
}

TEST_F(TransferFunctions, ASetUpToTheMiddleIsTold)
{
    Define("A", {{"TR", Power(2)}});
    EXPECT_TRUE(AreEqual(Read("q /A gs" + line + "Q" + line), boost::none));
    EXPECT_THAT(
        reading.result.errors,
        ElementsAre("operator gs: transfer functions of a part of the content are not modelled, byte 2"));
}

TEST_F(TransferFunctions, TwoSetsAreTold)
{
    Define("A", {{"TR", Power(2)}});
    Define("B", {{"TR", Power(3)}});
    EXPECT_TRUE(AreEqual(Read("/A gs" + line + "/B gs" + line), boost::none));
    EXPECT_THAT(
        reading.result.errors,
        ElementsAre("operator gs: transfer functions of a part of the content are not modelled, byte 20"));
}

TEST_F(TransferFunctions, ASetUnderWhichNothingIsPaintedIsNoProblem)
{
    Define("A", {{"TR", Power(2)}});
    EXPECT_TRUE(AreEqual(Read(line + "/A gs 0 0 m 1 0 l n"), boost::none));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(TransferFunctions, AContentThatPaintsNothingHasTheSetAtItsEnd)
{
    Define("A", {{"TR", Power(2)}});
    EXPECT_TRUE(Read("/A gs q Q 0 0 m 1 0 l n"));
    EXPECT_TRUE(AreEqual(Read("q /A gs Q"), boost::none));
}

TEST_F(TransferFunctions, WhatIsNoneIsToldAndLeavesTheStateAsItIs)
{
    const std::vector<PdfObject> malformed = {
        PdfObject::Name("Unresolved"), PdfObject::Integer(1),
        PdfObject::Dictionary({}),     Calculator(2),
        PdfObject::Array({Power(2)}),  PdfObject::Array({Power(2), Power(2), Power(2), Calculator(2)})};
    Define("A", {{"TR", Power(3)}});
    for (const PdfObject& value : malformed) {
        Define("B", {{"TR", value}});
        EXPECT_TRUE(AreEqual(Read("/A gs /B gs" + line), TransferFunctionSet(PowerFunction(3), {})));
        EXPECT_TRUE(reading.result.hasUnmodelled);
        EXPECT_THAT(reading.result.errors,
                    ElementsAre(testing::StartsWith("operator gs: transfer functions: ")));
    }
}

TEST_F(TransferFunctions, AMalformedKeyOfOursIsTold)
{
    const PdfObject name = PdfObject::String("Gold");
    for (const PdfObject& own :
         {PdfObject::Integer(1),
          PdfObject::Dictionary({{"Names", PdfObject::Array({name})}, {"Functions", PdfObject::Array({})}}),
          PdfObject::Dictionary({{"Names", PdfObject::Array({PdfObject::Integer(1)})},
                                 {"Functions", PdfObject::Array({Power(2)})}})}) {
        EXPECT_TRUE(AreEqual(Under({{"OrvTransferFunctions", own}}), boost::none));
        EXPECT_TRUE(reading.result.hasUnmodelled);
    }
}

} // namespace
