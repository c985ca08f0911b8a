#include "round_trip/round_trip_tester.h"

#include "support/document_makers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace HarrowSupport::Testing
{
namespace
{

using Comparators::LocationEntry;
using Comparators::LocationPath;
using Comparators::ReportKind;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

const OrvDoc::Page* const noPage = nullptr;
const OrvDoc::Content* const noContent = nullptr;
const OrvDoc::ContentObject* const noObject = nullptr;

class RoundTripTesterTest : public ::testing::Test
{
protected:
    RoundTripTesterTest() : left(NewDocument(2)), right(NewDocument(3))
    {
        Fill(ContentOf(*left), Square());
        Fill(ContentOf(*right), Square());
    }

    static const OrvDoc::Page* PagePointer(OrvDoc::Document& document, std::size_t index)
    {
        return &PageOf(document, index);
    }
    static const OrvDoc::Content* ContentPointer(OrvDoc::Document& document) { return &ContentOf(document); }
    static const OrvDoc::ContentObject* ObjectPointer(OrvDoc::Document& document)
    {
        return ContentOf(document).GetChildren().first;
    }

    static std::string NumberOf(const OrvDoc::Content* content) { return std::to_string(content->GetID()); }
    static std::string NumberOf(const OrvDoc::ContentObject* object)
    {
        return std::to_string(object->GetID());
    }

    /// What is kept of one report under the label "Label" with the text "text"; "dropped" if nothing is.
    static std::string Message(const LocationPath& leftPath, const LocationPath& rightPath)
    {
        RoundTripTester tester;
        tester.Report(ReportKind::Difference, "Label", leftPath, rightPath, "text");
        if (tester.differences.empty())
            return "dropped";
        EXPECT_EQ(tester.differences.size(), 1u);
        EXPECT_EQ(tester.differences[0].label, "Label");
        return tester.differences[0].message;
    }

    std::unique_ptr<OrvDoc::Document> left;
    std::unique_ptr<OrvDoc::Document> right;
};

TEST_F(RoundTripTesterTest, KeepsTheTextOfADifferenceOfTheWholeDocument)
{
    EXPECT_EQ(Message({}, {}), "text");
}

TEST_F(RoundTripTesterTest, KeepsTheTextIfOneSideHasNoPlace)
{
    EXPECT_EQ(Message({PagePointer(*left, 0)}, {}), "text");
    EXPECT_EQ(Message({}, {PagePointer(*right, 0)}), "text");
    EXPECT_EQ(Message({}, {noPage}), "text");
}

TEST_F(RoundTripTesterTest, TellsPagesByTheirIndexCountedFromZero)
{
    EXPECT_EQ(Message({PagePointer(*left, 0)}, {PagePointer(*right, 2)}),
              "Left page (index: 0) differs with Right page (index: 2): text");
}

TEST_F(RoundTripTesterTest, TellsContentsByTheirNumber)
{
    const auto* const leftContent = ContentPointer(*left);
    const auto* const rightContent = ContentPointer(*right);
    ASSERT_NE(leftContent->GetID(), rightContent->GetID());
    EXPECT_EQ(Message({leftContent}, {rightContent}), "Left content CID" + NumberOf(leftContent) +
                                                          " differs with Right content CID" +
                                                          NumberOf(rightContent) + ": text");
}

TEST_F(RoundTripTesterTest, TellsObjectsByTheirNumber)
{
    const auto* const leftObject = ObjectPointer(*left);
    const auto* const rightObject = ObjectPointer(*right);
    ASSERT_NE(leftObject->GetID(), rightObject->GetID());
    EXPECT_EQ(Message({leftObject}, {rightObject}), "Left object OID" + NumberOf(leftObject) +
                                                        " differs with Right object OID" +
                                                        NumberOf(rightObject) + ": text");
}

TEST_F(RoundTripTesterTest, TellsTheLeftPlaceAloneIfTheRightOneIsMissing)
{
    EXPECT_EQ(Message({PagePointer(*left, 1)}, {noPage}), "Left page (index: 1): text");
    EXPECT_EQ(Message({ContentPointer(*left)}, {noContent}),
              "Left content CID" + NumberOf(ContentPointer(*left)) + ": text");
    EXPECT_EQ(Message({ObjectPointer(*left)}, {noObject}),
              "Left object OID" + NumberOf(ObjectPointer(*left)) + ": text");
}

TEST_F(RoundTripTesterTest, TellsTheRightPlaceAloneIfTheLeftOneIsMissing)
{
    EXPECT_EQ(Message({noPage}, {PagePointer(*right, 1)}), "Right page (index: 1): text");
    EXPECT_EQ(Message({noContent}, {ContentPointer(*right)}),
              "Right content CID" + NumberOf(ContentPointer(*right)) + ": text");
    EXPECT_EQ(Message({noObject}, {ObjectPointer(*right)}),
              "Right object OID" + NumberOf(ObjectPointer(*right)) + ": text");
}

TEST_F(RoundTripTesterTest, DropsAReportWithoutAPlaceOnEitherSide)
{
    EXPECT_EQ(Message({noPage}, {noPage}), "dropped");
    EXPECT_EQ(Message({noContent}, {noContent}), "dropped");
    EXPECT_EQ(Message({noObject}, {noObject}), "dropped");
}

TEST_F(RoundTripTesterTest, KeepsTheTextIfThePlacesAreOfDifferentKinds)
{
    const LocationEntry leftPlaces[] = {PagePointer(*left, 0), ContentPointer(*left), ObjectPointer(*left)};
    const LocationEntry rightPlaces[] = {PagePointer(*right, 0), ContentPointer(*right),
                                         ObjectPointer(*right)};
    for (const LocationEntry& leftPlace : leftPlaces) {
        for (const LocationEntry& rightPlace : rightPlaces) {
            if (leftPlace.which() != rightPlace.which()) {
                EXPECT_EQ(Message({leftPlace}, {rightPlace}), "text");
            }
        }
    }
    EXPECT_EQ(Message({noPage}, {noContent}), "text");
    EXPECT_EQ(Message({noObject}, {ContentPointer(*right)}), "text");
}

TEST_F(RoundTripTesterTest, LooksAtTheLastEntryOfEachPathAlone)
{
    EXPECT_EQ(Message({noContent, PagePointer(*left, 1)}, {PagePointer(*right, 0), noContent, noPage}),
              "Left page (index: 1): text");
}

TEST_F(RoundTripTesterTest, KeepsAnEmptyTextBehindThePlace)
{
    RoundTripTester tester;
    tester.Report(ReportKind::Difference, "Label", {noPage}, {PagePointer(*right, 0)}, "");
    ASSERT_EQ(tester.differences.size(), 1u);
    EXPECT_EQ(tester.differences[0].message, "Right page (index: 0): ");
}

TEST_F(RoundTripTesterTest, KeepsToleratedVariationsAndTheOrder)
{
    RoundTripTester tester;
    EXPECT_THAT(tester.differences, IsEmpty());
    tester.Report(ReportKind::Difference, "First", {}, {}, "1");
    tester.Report(ReportKind::ToleratedVariation, "Second", {}, {}, "2");
    tester.Report(ReportKind::Difference, "Dropped", {noPage}, {noPage}, "3");
    tester.Report(ReportKind::Difference, "First", {}, {}, "4");
    std::vector<std::pair<std::string, std::string>> kept;
    for (const Difference& difference : tester.differences)
        kept.emplace_back(difference.label, difference.message);
    EXPECT_THAT(kept, ElementsAre(Pair("First", "1"), Pair("Second", "2"), Pair("First", "4")));
}

} // namespace
} // namespace HarrowSupport::Testing
