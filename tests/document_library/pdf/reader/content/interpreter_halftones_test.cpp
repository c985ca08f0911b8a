#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/halftone_set.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvDoc::HalftoneSet;
using OrvPdf::Testing::Reading;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

using HalftonePointer = std::shared_ptr<HalftoneSet>;

const std::string line = " 0 0 m 1 0 l f ";

PdfObject Screen(double frequency)
{
    return PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(1)},
                                  {"HalftoneName", PdfObject::String("Round")},
                                  {"Frequency", PdfObject::Real(frequency)},
                                  {"Angle", PdfObject::Integer(45)},
                                  {"SpotFunction", PdfObject::Name("Round")}});
}

PdfObject Threshold(int type)
{
    return PdfObject::Stream(PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(type)},
                                                    {"Width", PdfObject::Integer(2)},
                                                    {"Height", PdfObject::Integer(1)}}),
                             std::string("\x40\x80", 2));
}

class Halftones : public testing::Test
{
protected:
    void Define(const std::string& name, PdfObject::Entries parameters)
    {
        reading.resources.states[name] = PdfObject::Dictionary(std::move(parameters));
    }

    /// The halftones of the objects at the top, in order.
    std::vector<HalftonePointer> Read(const std::string& stream)
    {
        reading.Read(stream);
        std::vector<HalftonePointer> result;
        for (auto* object = reading.content->GetChildren().first; object; object = object->next)
            result.push_back(dynamic_cast<OrvDoc::Fillable&>(*object).GetHalftoneSet());
        return result;
    }

    Reading reading;
};

TEST_F(Halftones, ADictionaryIsKeptWholeWithItsName)
{
    Define("A", {{"HT", Screen(60)}});
    const auto given = Read("/A gs" + line);
    ASSERT_TRUE(given.at(0));
    EXPECT_EQ(given[0]->GetName(), "Round");
    EXPECT_EQ(given[0]->GetDefinition(), Screen(60));
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(Halftones, StreamsOfAllTypesAreKeptWithTheirBytes)
{
    for (const int type : {6, 10, 16}) {
        Define("A", {{"HT", Threshold(type)}});
        const auto given = Read("/A gs" + line);
        ASSERT_TRUE(given.at(0)) << type;
        EXPECT_EQ(given[0]->GetName(), "");
        EXPECT_EQ(given[0]->GetDefinition(), Threshold(type));
        EXPECT_THAT(reading.result.errors, IsEmpty());
    }
}

TEST_F(Halftones, HalftonesOfSeveralColorantsAreKept)
{
    const auto all = PdfObject::Dictionary(
        {{"HalftoneType", PdfObject::Integer(5)}, {"Default", Screen(60)}, {"Cyan", Threshold(6)}});
    Define("A", {{"HT", all}});
    EXPECT_EQ(Read("/A gs" + line).at(0)->GetDefinition(), all);
}

TEST_F(Halftones, TheDefaultClears)
{
    Define("A", {{"HT", Screen(60)}});
    Define("B", {{"HT", PdfObject::Name("Default")}});
    const auto given = Read("/A gs" + line + "/B gs" + line);
    EXPECT_TRUE(given.at(0));
    EXPECT_EQ(given.at(1), nullptr);
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST_F(Halftones, TheyBelongToTheStateThatIsSaved)
{
    Define("A", {{"HT", Screen(60)}});
    Define("B", {{"HT", Screen(90)}});
    const auto given = Read("/A gs q /B gs" + line + "Q" + line);
    EXPECT_EQ(given.at(0)->GetDefinition(), Screen(90));
    EXPECT_EQ(given.at(1)->GetDefinition(), Screen(60));
}

TEST_F(Halftones, EqualDefinitionsAreOneObject)
{
    Define("A", {{"HT", Screen(60)}});
    Define("B", {{"HT", Screen(90)}});
    Define("C", {{"HT", Screen(60)}});
    const auto given = Read("/A gs" + line + "/B gs" + line + "/C gs" + line);
    EXPECT_EQ(given.at(0), given.at(2));
    EXPECT_NE(given.at(0), given.at(1));
}

TEST_F(Halftones, OnlyPathsThatArePaintedHaveThem)
{
    Define("A", {{"HT", Screen(60)}});
    const auto given = Read("/A gs 0 0 m 1 0 l n 0 0 m 1 0 l S 0 0 m 1 0 l f");
    ASSERT_THAT(given, SizeIs(3));
    EXPECT_EQ(given[0], nullptr);
    EXPECT_TRUE(given[1]);
    EXPECT_TRUE(given[2]);
}

TEST_F(Halftones, AMarkedPathHasThemAlsoWithoutPaint)
{
    Define("A", {{"HT", Screen(60)}});
    EXPECT_TRUE(Read("/A gs /OrvObject << /Halftones true >> BDC 0 0 m 1 0 l n EMC").at(0));
}

TEST_F(Halftones, ANameOfTheModelGoesBeforeThatOfTheDictionary)
{
    Define("A", {{"HT", Screen(60)}, {"OrvHalftoneName", PdfObject::String("Fine")}});
    Define("B", {{"HT", Screen(60)}, {"OrvHalftoneName", PdfObject::String("")}});
    Define("C", {{"HT", Screen(60)}});
    const auto given = Read("/A gs" + line + "/B gs" + line + "/C gs" + line);
    EXPECT_EQ(given.at(0)->GetName(), "Fine");
    EXPECT_EQ(given.at(1)->GetName(), "");
    EXPECT_EQ(given.at(2)->GetName(), "Round");
}

TEST_F(Halftones, WhatIsNoneIsToldAndLeavesTheStateAsItIs)
{
    const std::vector<PdfObject> malformed = {
        PdfObject::Name("Unresolved"),
        PdfObject::Integer(1),
        PdfObject::Dictionary({}),
        PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(2)}}),
        PdfObject::Dictionary({{"HalftoneType", PdfObject::Integer(6)}}),
        Threshold(1),
        Threshold(5)};
    Define("A", {{"HT", Screen(60)}});
    for (const PdfObject& value : malformed) {
        Define("B", {{"HT", value}});
        const auto given = Read("/A gs /B gs" + line);
        EXPECT_EQ(given.at(0)->GetDefinition(), Screen(60));
        EXPECT_TRUE(reading.result.hasUnmodelled);
        EXPECT_THAT(reading.result.errors,
                    ElementsAre("operator gs: parameter HT is no halftone of a known type, byte 6"));
    }
}

} // namespace
