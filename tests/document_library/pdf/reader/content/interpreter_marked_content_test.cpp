#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::ContentResources;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using OrvSys::PdfObject;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string line = " 0 0 m 1 0 l n ";
const std::string path = "path {M 0 0 L 1000 0}";

TEST(InterpreterMarkedContent, ATagIsRemembered)
{
    EXPECT_EQ(Tree("/Artifact BMC" + line + "EMC"), "group /Artifact[" + path + "]");
}

TEST(InterpreterMarkedContent, PropertiesInTheContentAreRemembered)
{
    EXPECT_EQ(Tree("/P <</MCID 3 /Lang (de) /N null /A [1 -.50 true /X]>> BDC" + line + "EMC"),
              "group /P <</A [1 -.50 true /X] /Lang (de) /MCID 3>>[" + path + "]");
}

TEST(InterpreterMarkedContent, UnusualNumbersOfPropertiesKeepTheirValue)
{
    EXPECT_EQ(Tree("/P <</A --5 /B 12345678901234567890>> BDC EMC").substr(0, 40),
              "group /P <</A -5 /B 12345678901234567890");
    EXPECT_EQ(Tree("/P <</A 1e3>> BDC EMC").substr(0, 18), "group /P <</A 1000");
}

TEST(InterpreterMarkedContent, PropertiesInTheResourcesAreRememberedByNameAndValue)
{
    Reading reading;
    ContentResources::PropertyList list;
    list.value = PdfObject::Dictionary({{"MCID", PdfObject::Integer(1)}});
    list.objectNumber = 12;
    reading.resources.lists["MC0"] = list;
    reading.Read("/P /MC0 BDC" + line + "EMC /P /MC0 BDC EMC");
    EXPECT_EQ(Tree(reading),
              "group /P /MC0 = <</MCID 1>> object 12[" + path + "]; group /P /MC0 = <</MCID 1>> object 12[]");
    EXPECT_EQ(reading.resources.lookups, 1U);
    EXPECT_THAT(reading.result.errors, IsEmpty());
}

TEST(InterpreterMarkedContent, PropertiesThatAreMissingAreTold)
{
    Reading reading;
    reading.Read("/P /MC0 BDC" + line + "EMC");
    EXPECT_EQ(Tree(reading), "group /P /MC0[" + path + "]");
    EXPECT_THAT(reading.result.errors,
                ElementsAre("operator BDC: property list /MC0: it is missing, byte 0"));
}

TEST(InterpreterMarkedContent, PointsAreGroupsWithoutObjects)
{
    EXPECT_EQ(Tree("/P MP" + line + "/Q <</A 1>> DP"),
              "group point /P[]; " + path + "; group point /Q <</A 1>>[]");
}

TEST(InterpreterMarkedContent, OptionalContentOfALayerIsALayer)
{
    Reading reading;
    reading.AddLayer("oc1", "Cutting");
    reading.Read("/OC /oc1 BDC" + line + "EMC");
    EXPECT_EQ(Tree(reading), "layer 'Cutting'[" + path + "]");
}

TEST(InterpreterMarkedContent, LayersOfOneResourceShareTheLayer)
{
    Reading reading;
    const auto layer = reading.AddLayer("oc1", "Cutting");
    reading.Read("/OC /oc1 BDC EMC /OC /oc1 BDC EMC");
    for (const auto* object = reading.content->GetChildren().first; object; object = object->next) {
        const auto& membership = dynamic_cast<const OrvDoc::Layer&>(*object).GetMembership();
        EXPECT_EQ(boost::get<std::shared_ptr<OrvDoc::LayerProperties>>(membership), layer);
    }
}

TEST(InterpreterMarkedContent, AnotherTagWithALayerAsItsPropertiesIsNoLayer)
{
    Reading reading;
    reading.AddLayer("oc1", "Cutting");
    reading.Read("/X /oc1 BDC EMC /OC /oc1 DP");
    EXPECT_EQ(Tree(reading), "group /X /oc1[]; group point /OC /oc1[]");
}

TEST(InterpreterMarkedContent, OptionalContentWithoutALayerIsForeignMarkedContent)
{
    Reading reading;
    ContentResources::PropertyList list;
    list.value = PdfObject::Dictionary({{"Type", PdfObject::Name("Odd")}});
    reading.resources.lists["x"] = list;
    reading.Read("/OC /x BDC EMC");
    EXPECT_EQ(Tree(reading), "group /OC /x = <</Type /Odd>>[]");
}

TEST(InterpreterMarkedContent, TheNameOfALayerIsNotThatOfAnAttribute)
{
    Reading reading;
    const auto layer = reading.AddLayer("oc1", "Cutting");
    reading.Read("/OC /oc1 BDC /OrvAttributes <</Name (other) /Flags 7>> DP" + line + "EMC");
    EXPECT_EQ(Tree(reading), "layer 'Cutting' #7[" + path + "]");
    EXPECT_EQ(layer->GetName(), "Cutting");
}

TEST(InterpreterMarkedContent, ALogicalExpressionMayBeNamedByAnAttribute)
{
    Reading reading;
    const auto layer = reading.AddLayer("unused", "Cutting");
    ContentResources::PropertyList list;
    list.layer = OrvDoc::Layer::Membership(OrvDoc::LogicalLayerExpression(layer));
    reading.resources.lists["oc1"] = list;
    reading.Read("/OC /oc1 BDC /OrvAttributes <</Name (own)>> DP" + line + "EMC");
    EXPECT_EQ(Tree(reading), "layer 'own'[" + path + "]");
    EXPECT_EQ(layer->GetName(), "Cutting");
}

TEST(InterpreterMarkedContent, APropertyListNestedTooDeepIsTold)
{
    Reading reading;
    reading.limits.objectNesting = 500;
    reading.Read("/P <</A " + std::string(200, '[') + std::string(200, ']') + ">> BDC" + line + "EMC");
    EXPECT_EQ(Tree(reading), "group /P[" + path + "]");
    EXPECT_TRUE(reading.result.hasUnmodelled);
    ASSERT_EQ(reading.result.errors.size(), 1U);
    EXPECT_EQ(reading.result.errors[0].substr(0, 47), "operator BDC: a property list that is too large");
}

} // namespace
