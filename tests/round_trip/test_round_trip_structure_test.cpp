#include <harrow_support/round_trip.h>

#include <memory>
#include <string>
#include <vector>

#include <boost/any.hpp>
#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/blend_color_space.h>
#include <orv_doc/errors.h>
#include <orv_doc/properties.h>
#include <orv_doc/transfer_function_set.h>

#include "round_trip/remove_file.h"
#include "support/document_makers.h"
#include "support/paint_makers.h"
#include "support/pdf_text.h"
#include "support/recording_reporter.h"
#include "trip.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;

INSTANTIATE_TEST_SUITE_P(Overloads, TestRoundTripBothWays, ::testing::Values(Way::ThroughFile, Way::InMemory),
                         NameOfWay);

TEST_P(TestRoundTripBothWays, GivesThreeEmptyListsIfNothingChanged)
{
    auto document = NewDocument(2);
    document->SetSeparationInfo(SeparationNamed("Gold"));
    Fill(ContentOf(*document), Filled(Flat(Tints({{"Gold", 0.5f}}))), With(NamedGroup("g"), Square("in it")));
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(LinesOf(result), IsEmpty());
    EXPECT_THAT(result.documentErrors, IsEmpty());
    EXPECT_THAT(result.contentErrors, IsEmpty());
}

TEST_P(TestRoundTripBothWays, ComparesWhatWasWithWhatCameBack)
{
    auto document = NewDocument();
    auto path = std::make_unique<ActingPath>(GetParam());
    path->SetName("after");
    std::string copy;
    path->whenCloned = [&copy](OrvDoc::Path& clone) {
        clone.SetName("before");
        copy = ObjectPlace(&clone);
    };
    Fill(ContentOf(*document), std::move(path));
    const RoundTripResult result = Run(GetParam(), document);
    const std::string back = ObjectPlace(ContentOf(*document).GetChildren().first);
    EXPECT_THAT(LinesOf(result), ElementsAre("ObjectName: Left " + copy + " differs with Right " + back +
                                             ": 'before' vs 'after'"));
}

TEST_P(TestRoundTripBothWays, LeavesTheScratchPageWithoutObjects)
{
    auto document = NewDocument();
    Fill(ContentOf(*document), Square(), With(NamedGroup("g"), Square()), UserGroup());
    Run(GetParam(), document);
    EXPECT_EQ(ScratchContent().GetChildren().first, nullptr);
    EXPECT_EQ(ScratchContent().GetChildren().last, nullptr);
}

TEST_P(TestRoundTripBothWays, LeavesTheBlendColorSpaceOnTheScratchPage)
{
    auto document = NewDocument();
    const auto space = OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK());
    ContentOf(*document).SetBlendColorSpace(space);
    EXPECT_THAT(LinesOf(Run(GetParam(), document)), IsEmpty());
    EXPECT_EQ(ScratchContent().GetBlendColorSpace(), space);

    auto other = NewDocument();
    EXPECT_THAT(LinesOf(Run(GetParam(), other)), IsEmpty());
    EXPECT_EQ(ScratchContent().GetBlendColorSpace(), ContentOf(*other).GetBlendColorSpace());
}

TEST_P(TestRoundTripBothWays, LeavesTheTransferFunctionsOnTheScratchPage)
{
    const OrvDoc::TransferFunctionSet set(Ramp({0.0f}, {1.0f}, 2.0), {});
    auto document = NewDocument();
    PageOf(*document).SetTransferFunctionSet(set);
    EXPECT_THAT(LinesOf(Run(GetParam(), document)), IsEmpty());
    EXPECT_TRUE(ScratchContent().GetTransferFunctionSet() == boost::make_optional(set));

    auto other = NewDocument();
    EXPECT_THAT(LinesOf(Run(GetParam(), other)), IsEmpty());
    EXPECT_FALSE(ScratchContent().GetTransferFunctionSet());
}

TEST_P(TestRoundTripBothWays, DoesNotLookAtTheSeparationInfoUnasked)
{
    auto document = NewDocument();
    document->SetSeparationInfo(SeparationNamed("Gold"));
    auto path = std::make_unique<ActingPath>(GetParam());
    OrvDoc::Document* const raw = document.get();
    path->whenWritten = [raw] { raw->SetSeparationInfo(SeparationNamed("Silver")); };
    Fill(ContentOf(*document), std::move(path));
    Comparators::Options options = AllOptions();
    options.compareSeparationInfo = false;
    EXPECT_THAT(LinesOf(Run(GetParam(), document, options)), IsEmpty());
}

TEST_P(TestRoundTripBothWays, HandsTheOptionsToTheComparison)
{
    const auto dumpOf = [](std::uint32_t level) {
        auto document = NewDocument();
        Fill(ContentOf(*document), Square());
        // Left by nobody in particular, and so one object too many.
        Fill(ScratchContent(), Square());
        Comparators::Options options = AllOptions();
        options.dumpLevel = level;
        ::testing::internal::CaptureStderr();
        Run(GetParam(), document, options);
        return ::testing::internal::GetCapturedStderr();
    };
    EXPECT_EQ(dumpOf(0), "");
    EXPECT_NE(dumpOf(1), "");
}

TEST_P(TestRoundTripBothWays, TellsNewErrorsOfDocumentAndContent)
{
    auto document = NewDocument();
    document->GetActiveErrors().Add("old of the document");
    ContentOf(*document).GetActiveErrors().Add("old of the content");
    auto path = std::make_unique<ActingPath>(GetParam());
    OrvDoc::Document* const raw = document.get();
    path->whenWritten = [raw] {
        raw->GetActiveErrors().Add("new of the document");
        ContentOf(*raw).GetActiveErrors().Add("new of the content");
    };
    Fill(ContentOf(*document), std::move(path));
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(TextsOf(result.documentErrors), ElementsAre("new of the document"));
    EXPECT_THAT(TextsOf(result.contentErrors), ElementsAre("new of the content"));
}

TEST_P(TestRoundTripBothWays, DoesNotTellErrorsThatWent)
{
    auto document = NewDocument();
    document->GetActiveErrors().Add("went", OrvDoc::Errors::Origin::Writing);
    ContentOf(*document).GetActiveErrors().Add("went too", OrvDoc::Errors::Origin::Writing);
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(result.documentErrors, IsEmpty());
    EXPECT_THAT(result.contentErrors, IsEmpty());
}

TEST_P(TestRoundTripBothWays, DoesNotTellErrorsOfReadingThePageForTheFirstTime)
{
    const auto file = folder.Write("odd.pdf", PdfFileOfPages({"1 2 wobble\n"}));
    auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    EXPECT_THAT(Run(GetParam(), document).contentErrors, IsEmpty());

    const auto other = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    EXPECT_EQ(ContentOf(*other).GetActiveErrors().GetAllErrors().size(), 1u);
}

TEST_P(TestRoundTripBothWays, DoesNotTellErrorsThatTheCopyAdds)
{
    auto document = NewDocument();
    auto path = std::make_unique<ActingPath>(GetParam());
    OrvDoc::Document* const raw = document.get();
    path->whenCloned = [raw](OrvDoc::Path&) {
        raw->GetActiveErrors().Add("of the copy");
        ContentOf(*raw).GetActiveErrors().Add("of the copy too");
    };
    Fill(ContentOf(*document), std::move(path));
    const RoundTripResult result = Run(GetParam(), document);
    EXPECT_THAT(result.documentErrors, IsEmpty());
    EXPECT_THAT(result.contentErrors, IsEmpty());
}

TEST_P(TestRoundTripBothWays, KeepsTheCopyOnTheScratchPageIfWritingFails)
{
    auto document = NewDocument();
    auto path = std::make_unique<ActingPath>(GetParam());
    path->whenWritten = [] { throw std::runtime_error("the pen is empty"); };
    Fill(ContentOf(*document), std::move(path));
    const OrvDoc::Document* const given = document.get();
    EXPECT_THROW(Run(GetParam(), document), std::runtime_error);
    EXPECT_EQ(document.get(), given);
    ASSERT_NE(ScratchContent().GetChildren().first, nullptr);

    // Nobody takes the copy away, so the next trip compares with two objects.
    const std::vector<std::string> lines = LinesOf(Run(GetParam(), document));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], MatchesRegex("ObjectRemoved: Left object OID[0-9]+: .*Path"));
    EXPECT_EQ(ScratchContent().GetChildren().first, nullptr);
}

class TestRoundTripThroughFile : public TestRoundTrip
{};

TEST_F(TestRoundTripThroughFile, NamesTheFile)
{
    auto document = NewDocument();
    TestRoundTripStructure(document, AllOptions());
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-RoundTripTester(-[0-9a-f]{4}){4}\\.pdf"));
    EXPECT_EQ(document->GetFilePath(), folder.GetPath() / OnlyFileName());
}

TEST_F(TestRoundTripThroughFile, GivesTheFileToTheNewDocument)
{
    auto document = NewDocument();
    TestRoundTripStructure(document, AllOptions());
    const boost::any* const value = document->GetProperties().Find("Harrow.RoundTripTester.RemoveTempFile");
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(boost::any_cast<std::shared_ptr<RemoveFile>>(value)->use_count(), 1);
    document.reset();
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_F(TestRoundTripThroughFile, LeavesOnlyTheNewestFileOfSeveralTrips)
{
    auto document = NewDocument();
    TestRoundTripStructure(document, AllOptions());
    const std::string first = OnlyFileName();
    TestRoundTripStructure(document, AllOptions());
    EXPECT_NE(OnlyFileName(), first);
    EXPECT_NE(OnlyFileName(), "not exactly one file");
}

TEST_F(TestRoundTripThroughFile, DestroysTheDocumentBeforeItReadsTheFile)
{
    auto document = NewDocument();
    Fill(ContentOf(*document), Square("a"));
    ReadInstead(*document, [] {
        auto other = NewDocument();
        Fill(ContentOf(*other), Square("b"));
        return other;
    });
    const std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], MatchesRegex("ObjectName: Left object OID[0-9]+ differs with Right object "
                                       "OID[0-9]+: 'a' vs 'b'"));
}

TEST_F(TestRoundTripThroughFile, TellsAddedAndRemovedObjectsWithOnePlace)
{
    auto document = NewDocument();
    Fill(ContentOf(*document), Square());
    ReadInstead(*document, [] { return NewDocument(); });
    std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], MatchesRegex("ObjectRemoved: Left object OID[0-9]+: OrvDoc::Path"));

    document = NewDocument();
    ReadInstead(*document, [] {
        auto other = NewDocument();
        Fill(ContentOf(*other), Square());
        return other;
    });
    lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    EXPECT_THAT(lines, ElementsAre("ObjectAdded: Right " +
                                   ObjectPlace(ContentOf(*document).GetChildren().first) + ": OrvDoc::Path"));
}

TEST_F(TestRoundTripThroughFile, LooksAtTheFirstPageAlone)
{
    auto document = NewDocument(2);
    Fill(ContentOf(*document, 1), Square("a"));
    ReadInstead(*document, [] { return NewDocument(3); });
    EXPECT_THAT(LinesOf(TestRoundTripStructure(document, AllOptions())), IsEmpty());
}

TEST_F(TestRoundTripThroughFile, TellsTheSeparationInfoBeforeTheContentAndWithoutAPlace)
{
    auto document = NewDocument();
    document->SetSeparationInfo(SeparationNamed("Gold"));
    Fill(ContentOf(*document), Square());
    ReadInstead(*document, [] {
        auto other = NewDocument();
        other->SetSeparationInfo(SeparationNamed("Silver"));
        return other;
    });
    const std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "SeparationInfo: '[Gold (none)]' vs '[Silver (none)]'");
    EXPECT_THAT(lines[1], MatchesRegex("ObjectRemoved: .*"));
}

TEST_F(TestRoundTripThroughFile, TellsAContentThatBlendsInAnotherSpaceByItsNumber)
{
    auto document = NewDocument();
    ContentOf(*document).SetBlendColorSpace(OrvDoc::BlendColorSpace(OrvColor::ColorSpace::DeviceCMYK()));
    ReadInstead(*document, [] { return NewDocument(); });
    const std::vector<std::string> lines = LinesOf(TestRoundTripStructure(document, AllOptions()));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0],
                MatchesRegex("ContentBlendColorSpace: Left content CID" +
                             std::to_string(ScratchContent().GetID()) + " differs with Right content CID" +
                             std::to_string(ContentOf(*document).GetID()) + ": '.*' vs '.*'"));
}

TEST_F(TestRoundTripThroughFile, KeepsErrorsOfTheOldDocumentAlive)
{
    auto document = NewDocument();
    auto path = std::make_unique<ActingPath>(Way::ThroughFile);
    OrvDoc::Document* const raw = document.get();
    path->whenWritten = [raw] { raw->GetActiveErrors().Add("of the old document"); };
    Fill(ContentOf(*document), std::move(path));
    const RoundTripResult result = TestRoundTripStructure(document, AllOptions());
    ASSERT_EQ(result.documentErrors.size(), 1u);
    EXPECT_EQ(result.documentErrors[0].use_count(), 1);
    EXPECT_THAT(document->GetActiveErrors().GetAllErrors(), IsEmpty());
}

TEST_F(TestRoundTripThroughFile, TouchesNothingIfThereIsNoTemporaryDirectory)
{
    ::setenv("TMPDIR", folder.NameOf("missing").c_str(), 1);
    auto document = NewDocument();
    Fill(ContentOf(*document), Square());
    const OrvDoc::Document* const given = document.get();
    EXPECT_THROW(TestRoundTripStructure(document, AllOptions()), boost::filesystem::filesystem_error);
    EXPECT_EQ(document.get(), given);
    EXPECT_EQ(ScratchContent().GetChildren().first, nullptr);
}

TEST_F(TestRoundTripThroughFile, LeavesFileAndCopyButNoDocumentIfReadingFails)
{
    auto document = NewDocument();
    Fill(ContentOf(*document), Square());
    document->GetProperties().Set(
        "test", std::make_shared<WhenDestroyed>([this] { folder.Write(OnlyFileName(), "no PDF file"); }));
    EXPECT_THROW(TestRoundTripStructure(document, AllOptions()), std::runtime_error);
    EXPECT_EQ(document, nullptr);
    EXPECT_THAT(OnlyFileName(), MatchesRegex("Harrow-RoundTripTester.*"));
    EXPECT_NE(ScratchContent().GetChildren().first, nullptr);
}

class TestRoundTripInMemory : public TestRoundTrip
{};

TEST_F(TestRoundTripInMemory, MakesNoFileAndKeepsTheDocument)
{
    auto document = NewDocument();
    Fill(ContentOf(*document), Square());
    const OrvDoc::ContentObject* const object = ContentOf(*document).GetChildren().first;
    TestRoundTripStructure(*document, AllOptions());
    EXPECT_THAT(FileNames(), IsEmpty());
    EXPECT_EQ(ContentOf(*document).GetChildren().first, object);
}

TEST_F(TestRoundTripInMemory, TellsASeparationInfoThatWritingChanged)
{
    auto document = NewDocument();
    document->SetSeparationInfo(SeparationNamed("Gold"));
    auto path = std::make_unique<ActingPath>(Way::InMemory);
    OrvDoc::Document* const raw = document.get();
    path->whenWritten = [raw] { raw->SetSeparationInfo(SeparationNamed("Silver")); };
    Fill(ContentOf(*document), std::move(path));
    EXPECT_THAT(LinesOf(TestRoundTripStructure(*document, AllOptions())),
                ElementsAre("SeparationInfo: '[Gold (none)]' vs '[Silver (none)]'"));
}

} // namespace
} // namespace HarrowSupport::Testing
