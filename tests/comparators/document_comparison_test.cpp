#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <sstream>

namespace HarrowSupport::Testing
{

using ::testing::ElementsAre;

namespace
{

OrvDoc::Separation::Entry Separation(const std::string& name)
{
    return OrvDoc::Separation::Entry(name, OrvColor::Representation());
}

template <typename Value>
std::string Print(const Value& value)
{
    std::ostringstream stream;
    stream << value;
    return stream.str();
}

/// A document whose one page has that media box.
std::unique_ptr<OrvDoc::Document> WithMediaBox(const Box& box)
{
    auto document = NewDocument();
    PageOf(*document).SetPageBox(OrvDoc::PageBox::Media, box);
    return document;
}

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(CompareDocuments, PageCountComesAfterOutputIntentSeparationsAndLayersAndInPlaceOfThePages)
{
    const auto left = NewDocument(3);
    const auto right = NewDocument(2);
    OrvColor::OutputIntent intent;
    left->SetOutputIntent(intent);
    left->SetSeparationInfo({Separation("Spot")});
    right->SetSeparationInfo({});
    left->GetLayers().AddLayer("cut");
    PageOf(*left).SetPageBox(OrvDoc::PageBox::Media, Box(0.0, 0.0, 5.0, 5.0));
    Fill(ContentOf(*left), Square("a"));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("OutputIntent", "SeparationInfo", "LayerCount",
                                               "LayerConfiguration", "PageCount"));
    for (const RecordedReport& report : reporter.GetReports()) {
        EXPECT_TRUE(report.left.empty()) << report.label;
        EXPECT_TRUE(report.right.empty()) << report.label;
    }
}

TEST(CompareDocuments, PageCountsArePlainNumbers)
{
    ExpectReports(*NewDocument(3), *NewDocument(2), {Difference("PageCount", "3", "2")});
}

TEST(CompareDocuments, DocumentsWithoutPagesAreEqual)
{
    ExpectReports(*NewDocument(0), *NewDocument(0), {});
}

TEST(CompareDocuments, AnOutputIntentOnOneSideIsADifference)
{
    OrvColor::OutputIntent intent;
    intent.SetOutputConditionIdentifier("FOGRA39");
    const auto left = NewDocument();
    left->SetOutputIntent(intent);
    ExpectReports(*left, *NewDocument(), {Difference("OutputIntent", " " + Print(intent), "--")});
}

TEST(CompareDocuments, OutputIntentsAreComparedByTheirOwnEquality)
{
    OrvColor::OutputIntent coated;
    coated.SetOutputConditionIdentifier("FOGRA39");
    OrvColor::OutputIntent uncoated;
    uncoated.SetOutputConditionIdentifier("FOGRA47");
    const auto left = NewDocument();
    const auto right = NewDocument();
    left->SetOutputIntent(coated);
    right->SetOutputIntent(coated);
    ExpectReports(*left, *right, {});
    right->SetOutputIntent(uncoated);
    ExpectReports(*left, *right, {Difference("OutputIntent", " " + Print(coated), " " + Print(uncoated))});
}

TEST(CompareDocuments, SeparationInfoIsNotLookedAtUnlessAskedFor)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    left->SetSeparationInfo({Separation("Spot")});
    right->SetSeparationInfo({Separation("Varnish")});
    Comparators::Options options = AllOptions();
    options.compareSeparationInfo = false;
    ExpectReports(*left, *right, {}, options);
}

TEST(CompareDocuments, SeparationInfoInAnotherOrderDiffers)
{
    const std::vector<OrvDoc::Separation::Entry> one = {Separation("Spot"), Separation("Varnish")};
    const std::vector<OrvDoc::Separation::Entry> other = {Separation("Varnish"), Separation("Spot")};
    const auto left = NewDocument();
    const auto right = NewDocument();
    left->SetSeparationInfo(one);
    right->SetSeparationInfo(other);
    ExpectReports(*left, *right, {Difference("SeparationInfo", Print(one), Print(other))});
}

TEST(CompareDocuments, EqualPagesWithDifferentLayersGiveLayerReportsOnly)
{
    const auto left = NewDocument(2);
    const auto right = NewDocument(2);
    left->GetLayers().AddLayer("cut");
    right->GetLayers().AddLayer("fold");
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("LayerConfiguration"));
}

TEST(CompareDocuments, LayerDifferencesDoNotKeepThePagesFromBeingCompared)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    left->GetLayers().AddLayer("cut");
    right->GetLayers().AddLayer("fold");
    Fill(ContentOf(*left), Square("a"));
    Fill(ContentOf(*right), Square("b"));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("LayerConfiguration", "ObjectName"));
}

TEST(CompareDocuments, AMismatchOfClassesEndsTheComparisonAfterTheBoxesOfItsPage)
{
    const auto left = NewDocument(3);
    const auto right = NewDocument(3);
    const Box small(0.0, 0.0, 5000.0, 5000.0);
    for (std::size_t i = 0; i < 3; ++i)
        PageOf(*left, i).SetPageBox(OrvDoc::PageBox::Media, small);
    Fill(ContentOf(*left), Square("a"), Square("b"));
    Fill(ContentOf(*right), Square("A"), ImplicitGroup(), NamedGroup("g"));
    Fill(ContentOf(*left, 1), Square("c"));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectName", "ObjectType", "PageMediaBox"));
}

TEST(CompareDocuments, ASurplusObjectDoesNotKeepLaterPagesFromBeingCompared)
{
    const auto left = NewDocument(2);
    const auto right = NewDocument(2);
    Fill(ContentOf(*left), Square("a"));
    Fill(ContentOf(*left, 1), Square("b"));
    Fill(ContentOf(*right, 1), Square("B"));
    ExpectReports(*left, *right, {Removed("OrvDoc::Path"), Difference("ObjectName", "b", "B")});
}

TEST(CompareDocuments, BoxesAreReportedAfterTheContentAtThePage)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    PageOf(*left).SetPageBox(OrvDoc::PageBox::Media, Box(0.0, 0.0, 1.0, 1.0));
    Fill(ContentOf(*left), Square("a"));
    Fill(ContentOf(*right), Square("b"));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(), ElementsAre("ObjectName", "PageMediaBox"));
    const RecordedReport& report = reporter.GetReports().back();
    EXPECT_EQ(report.left, Comparators::LocationPath{static_cast<const OrvDoc::Page*>(&PageOf(*left))});
    EXPECT_EQ(report.right, Comparators::LocationPath{static_cast<const OrvDoc::Page*>(&PageOf(*right))});
}

TEST(CompareDocuments, AllFiveBoxesAreComparedInTheirOrder)
{
    const auto left = NewDocument();
    const auto right = NewDocument();
    for (unsigned box = 0; box < 5; ++box)
        PageOf(*left).SetPageBox(static_cast<OrvDoc::PageBox>(box), Box(0.0, 0.0, 10.0 + box, 10.0));
    RecordingReporter reporter;
    Comparators::Compare(reporter, *left, *right, AllOptions());
    EXPECT_THAT(reporter.Labels(),
                ElementsAre("PageMediaBox", "PageCropBox", "PageBleedBox", "PageTrimBox", "PageArtBox"));
}

TEST(PageBoxes, ShowEdgesAndSize)
{
    ExpectReports(*WithMediaBox(Box(10.0, 20.0, 300.0, 400.0)), *WithMediaBox(Box(10.0, 20.0, 300.5, 500.0)),
                  {Difference("PageMediaBox", "[ L: 10, T: 420, R: 310, B: 20 (W: 300, H 400) ]",
                              "[ L: 10, T: 520, R: 310.5, B: 20 (W: 300.5, H 500) ]")});
}

TEST(PageBoxes, OneMilliPointApartOnAnyEdgeIsEqual)
{
    const Box box(0.0, 0.0, 100.0, 100.0);
    for (const Box& other :
         {Box(1.0, 0.0, 99.0, 100.0), Box(0.0, 1.0, 100.0, 99.0), Box(0.0, 0.0, 101.0, 100.0),
          Box(0.0, 0.0, 100.0, 101.0), Box(-1.0, -1.0, 102.0, 102.0)})
        ExpectReports(*WithMediaBox(box), *WithMediaBox(other), {});
}

TEST(PageBoxes, EdgesOnePointOneApartDiffer)
{
    const Box box(0.0, 0.0, 0.0, 0.0);
    for (const Box& other : {Box(1.1, 0.0, -1.1, 0.0), Box(0.0, 1.1, 0.0, -1.1), Box(0.0, 0.0, 1.1, 0.0),
                             Box(0.0, 0.0, 0.0, 1.1)}) {
        RecordingReporter reporter;
        Comparators::Compare(reporter, *WithMediaBox(box), *WithMediaBox(other), AllOptions());
        EXPECT_THAT(reporter.Labels(), ElementsAre("PageMediaBox"));
        EXPECT_THAT(CompareLines(*WithMediaBox(other), *WithMediaBox(box)).size(), 1u);
    }
}

TEST(PageBoxes, EdgesJustBelowOnePointOneApartAreEqual)
{
    const double below = std::nextafter(1.1, 0.0);
    const Box box(0.0, 0.0, 0.0, 0.0);
    for (const Box& other : {Box(below, 0.0, -below, 0.0), Box(0.0, below, 0.0, -below),
                             Box(0.0, 0.0, below, 0.0), Box(0.0, 0.0, 0.0, below)})
        ExpectReports(*WithMediaBox(box), *WithMediaBox(other), {});
}

TEST(PageBoxes, AWidthThatDiffersByMoreThanEachEdgeIsEqual)
{
    ExpectReports(*WithMediaBox(Box(0.0, 0.0, 100.0, 100.0)), *WithMediaBox(Box(-1.0, 0.0, 102.0, 100.0)),
                  {});
}

TEST(PageBoxes, AnUnsetBoxIsComparedByItsNumbersAndPrintedAsUnset)
{
    ExpectReports(*WithMediaBox(Box()), *WithMediaBox(Box(0.0, 0.0, 1.0, 1.0)), {});
    ExpectReports(*WithMediaBox(Box()), *WithMediaBox(Box(0.0, 0.0, 2.0, 0.0)),
                  {Difference("PageMediaBox", "[ <initial/default state> ]",
                              "[ L: 0, T: 0, R: 2, B: 0 (W: 2, H 0) ]")});
}

TEST(PageBoxes, NumbersThatAreNotFiniteMatchNothing)
{
    for (double number : {std::nan(""), infinity}) {
        const auto document = WithMediaBox(Box(number, 0.0, 1.0, 1.0));
        RecordingReporter reporter;
        Comparators::Compare(reporter, *document, *document, AllOptions());
        EXPECT_THAT(reporter.Labels(), ElementsAre("PageMediaBox")) << number;
    }
}

} // namespace HarrowSupport::Testing
