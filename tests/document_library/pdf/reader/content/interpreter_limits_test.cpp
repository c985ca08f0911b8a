#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "document_library/pdf/reader/interpreter_test_support.h"

namespace
{

using OrvPdf::ContentResources;
using OrvPdf::Testing::Reading;
using OrvPdf::Testing::Tree;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string line = " 0 0 m n ";
const std::string path = "path {M 0 0}";

Reading Limited(std::string_view stream, std::uint64_t OrvDoc::ReadOptions::Limits::*limit,
                std::uint64_t value)
{
    Reading reading;
    reading.limits.*limit = value;
    reading.Read(stream);
    return reading;
}

Reading Limited(std::string_view stream, std::uint32_t OrvDoc::ReadOptions::Limits::*limit,
                std::uint32_t value)
{
    Reading reading;
    reading.limits.*limit = value;
    reading.Read(stream);
    return reading;
}

using Limits = OrvDoc::ReadOptions::Limits;

TEST(InterpreterLimits, StatesAreSavedUpToTheLimitOfNesting)
{
    const Reading at = Limited("q 2 g q 3 g Q Q 0 0 m f", &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(at), "path {M 0 0} fill Gray 0");
    EXPECT_THAT(at.result.errors, IsEmpty());
    const Reading past = Limited("q 2 g q q 3 g Q Q Q 0 0 m f", &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(past), "path {M 0 0} fill Gray 0");
    EXPECT_THAT(past.result.errors,
                ElementsAre("limit contentNesting: 2 reached, the rest is left out, byte 8"));
}

TEST(InterpreterLimits, MarkedContentNestsUpToTheLimitOfNesting)
{
    const Reading at = Limited("/A BMC /B BMC" + line + "EMC EMC" + line, &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(at), "group /A[group /B[" + path + "]]; " + path);
    EXPECT_THAT(at.result.errors, IsEmpty());
    const Reading past =
        Limited("/A BMC /B BMC /C BMC /OrvObject <</Name (x)>> BDC" + line + "EMC EMC EMC EMC" + line,
                &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(past), "group /A[group /B[" + path + "]]; " + path);
    EXPECT_THAT(past.result.errors,
                ElementsAre("limit contentNesting: 2 reached, the rest is left out, byte 14 and 1 more"));
    EXPECT_TRUE(past.result.hasUnmodelled);
}

TEST(InterpreterLimits, ClipsNestUpToTheLimitOfNesting)
{
    const std::string clip = " 0 0 m W n ";
    const Reading at = Limited("q" + clip + clip + line + "Q", &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(at), "group[path clip {M 0 0}; group[path clip {M 0 0}; " + path + "]]");
    EXPECT_THAT(at.result.errors, IsEmpty());
    const Reading past = Limited("q" + clip + clip + clip + line + "Q" + line, &Limits::contentNesting, 2);
    EXPECT_EQ(Tree(past), "group[path clip {M 0 0}; group[path clip {M 0 0}; " + path + "]]; " + path);
    EXPECT_EQ(past.result.errors.size(), 1U);
}

TEST(InterpreterLimits, ObjectsAreMadeUpToTheirLimit)
{
    EXPECT_THAT(Limited(line + line, &Limits::contentObjects, 2).result.errors, IsEmpty());
    const Reading past = Limited(line + line + line, &Limits::contentObjects, 2);
    EXPECT_EQ(Tree(past), path + "; " + path);
    EXPECT_THAT(past.result.errors,
                ElementsAre("limit contentObjects: 2 reached, the rest is left out, byte 27"));
    EXPECT_TRUE(past.result.hasUnmodelled);
}

TEST(InterpreterLimits, GroupsAndTheirClipsCountAsObjects)
{
    const std::string stream = "q 0 0 m W n" + line + "Q";
    EXPECT_THAT(Limited(stream, &Limits::contentObjects, 3).result.errors, IsEmpty());
    EXPECT_EQ(Limited(stream, &Limits::contentObjects, 2).result.errors.size(), 1U);
}

TEST(InterpreterLimits, ALayerCountsForTheSizeOfItsExpression)
{
    Reading reading;
    const auto layer = reading.AddLayer("unused", "L");
    ContentResources::PropertyList list;
    list.layer = OrvDoc::Layer::Membership(OrvDoc::LogicalLayerExpression(
        OrvDoc::LogicalLayerExpression::Operation::AnyOn,
        std::vector<OrvDoc::LogicalLayerExpression>(80, OrvDoc::LogicalLayerExpression(layer))));
    reading.resources.lists["oc"] = list;
    reading.limits.contentObjects = 11;
    reading.Read("/OC /oc BDC EMC");
    EXPECT_THAT(reading.result.errors, IsEmpty());
    reading.limits.contentObjects = 10;
    reading.Read("/OC /oc BDC EMC");
    EXPECT_EQ(Tree(reading), "");
    EXPECT_EQ(reading.result.errors.size(), 1U);
}

TEST(InterpreterLimits, PathsHaveSegmentsUpToTheirLimit)
{
    EXPECT_THAT(Limited("0 0 m 1 0 l 2 0 l n", &Limits::pathSegments, 3).result.errors, IsEmpty());
    const Reading past = Limited("0 0 m 1 0 l 2 0 l 3 0 l n 0 0 m 1 0 l n", &Limits::pathSegments, 3);
    EXPECT_EQ(Tree(past), "path {M 0 0 L 1000 0 L 2000 0}; path {M 0 0 L 1000 0}");
    EXPECT_THAT(past.result.errors,
                ElementsAre("limit pathSegments: 3 reached, the rest is left out, byte 18"));
    EXPECT_TRUE(past.result.hasUnmodelled);
}

TEST(InterpreterLimits, ARectangleGoesInWholeOrNotAtAll)
{
    EXPECT_THAT(Limited("0 0 1 1 re n", &Limits::pathSegments, 4).result.errors, IsEmpty());
    EXPECT_EQ(Tree(Limited("0 0 1 1 re n", &Limits::pathSegments, 3)), "");
}

TEST(InterpreterLimits, MovesCountAsSegments)
{
    EXPECT_EQ(Tree(Limited("0 0 m h 1 1 m h 2 2 m h n", &Limits::pathSegments, 2)),
              "path {M 0 0 Z M 1000 1000 Z}");
}

TEST(InterpreterLimits, DashesHaveElementsUpToTheirLimit)
{
    EXPECT_EQ(Tree(Limited("[1 2] 1 d 0 0 m S", &Limits::dashElements, 2)),
              "path {M 0 0} stroke Gray 0 dash 1000 2000 from 1000");
    const Reading past = Limited("[1 2 3] 1 d 0 0 m S", &Limits::dashElements, 2);
    EXPECT_EQ(Tree(past), "path {M 0 0} stroke Gray 0");
    EXPECT_THAT(past.result.errors,
                ElementsAre("limit dashElements: 2 reached, the rest is left out, byte 0"));
    EXPECT_TRUE(past.result.hasUnmodelled);
}

TEST(InterpreterLimits, ErrorsAreKeptUpToTheirLimit)
{
    EXPECT_THAT(
        Limited("xa xb", &Limits::errors, 2).result.errors,
        ElementsAre("operator xa: unknown operator, byte 0", "operator xb: unknown operator, byte 3"));
    EXPECT_THAT(Limited("xa xb xc xd xa", &Limits::errors, 2).result.errors,
                ElementsAre("operator xa: unknown operator, byte 0 and 1 more",
                            "operator xb: unknown operator, byte 3",
                            "limit errors: 2 reached, 2 more problems are not listed"));
}

TEST(InterpreterLimits, ErrorsPastTheirLimitStillTellThatThereAreUnmodelledParts)
{
    const Reading reading = Limited("xa /Im Do", &Limits::errors, 1);
    EXPECT_TRUE(reading.result.hasUnmodelled);
    EXPECT_EQ(reading.result.errors.size(), 2U);
}

TEST(InterpreterLimits, OperandsNestUpToTheirLimit)
{
    EXPECT_THAT(Limited("/P <</A [1]>> DP", &Limits::objectNesting, 2).result.errors, IsEmpty());
    const Reading past = Limited("/P <</A [[1]]>> DP", &Limits::objectNesting, 2);
    EXPECT_EQ(past.result.errors.size(), 1U);
    EXPECT_TRUE(past.result.hasUnmodelled);
}

} // namespace
