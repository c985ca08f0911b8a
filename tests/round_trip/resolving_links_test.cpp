#include <orv_doc/pdf_links.h>

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/document_info_flag_key.h>

#include "round_trip/remove_file.h"
#include "support/pdf_text.h"
#include "trip.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What is done in the place of the resolving.
std::function<void(OrvDoc::Document&)> whenResolved;

/// A call, by the document and the number of files that it knows.
using Call = std::pair<const OrvDoc::Document*, std::size_t>;
std::vector<Call> calls;

} // namespace
} // namespace HarrowSupport::Testing

// For the whole program, in the place of the one of the document library: whether it adds errors, and when it
// is called, cannot be seen otherwise.
std::vector<std::string>
OrvDoc::ResolveNormalizedPDFLinks(Document& document,
                                  const std::map<std::string, boost::filesystem::path>& files)
{
    HarrowSupport::Testing::calls.emplace_back(&document, files.size());
    if (HarrowSupport::Testing::whenResolved)
        HarrowSupport::Testing::whenResolved(document);
    return {};
}

namespace HarrowSupport::Testing
{
namespace
{

class ResolvingLinks : public TestRoundTripBothWays
{
protected:
    ResolvingLinks() { calls.clear(); }
    ~ResolvingLinks() override { whenResolved = nullptr; }

    /// A document whose file names a link, and with a square on its page.
    DocumentPointer NewDocumentWithLink()
    {
        const auto file =
            folder.Write("link.pdf", PdfFileOfPages({"0 0 10 10 re f\n"}, "/OrvLinks << /key 5 0 R >>", "",
                                                    {"<< /Type /Filespec /F (other.pdf) >>"}));
        auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        boost::filesystem::remove(file);
        return document;
    }
};

class ResolvingLinksThroughFile : public ResolvingLinks
{};

class ResolvingLinksInMemory : public ResolvingLinks
{};

INSTANTIATE_TEST_SUITE_P(Overloads, ResolvingLinks, ::testing::Values(Way::ThroughFile, Way::InMemory),
                         NameOfWay);
INSTANTIATE_TEST_SUITE_P(Overload, ResolvingLinksThroughFile, ::testing::Values(Way::ThroughFile), NameOfWay);
INSTANTIATE_TEST_SUITE_P(Overload, ResolvingLinksInMemory, ::testing::Values(Way::InMemory), NameOfWay);

TEST_P(ResolvingLinks, ComesOnceForWhatCameBackAndKnowsNoFiles)
{
    DocumentPointer document = NewDocumentWithLink();
    Run(GetParam(), document);
    EXPECT_THAT(calls, ElementsAre(Call(document.get(), 0)));
}

TEST_P(ResolvingLinks, IsLeftOutWithoutLinks)
{
    auto document = NewDocument();
    Run(GetParam(), document);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_P(ResolvingLinks, ComesBehindTheWriting)
{
    std::vector<std::string> events;
    DocumentPointer document = NewDocumentWithLink();
    auto path = std::make_unique<ActingPath>(GetParam());
    path->whenWritten = [&events] { events.push_back("written"); };
    Fill(ContentOf(*document), std::move(path));
    whenResolved = [&events](OrvDoc::Document&) { events.push_back("resolved"); };
    Run(GetParam(), document);
    EXPECT_THAT(events, ElementsAre("written", "resolved"));
}

TEST_P(ResolvingLinks, ComesAheadOfTheComparison)
{
    DocumentPointer document = NewDocumentWithLink();
    whenResolved = [](OrvDoc::Document& resolved) {
        ContentOf(resolved).GetChildren().first->SetName("resolved");
    };
    const std::vector<std::string> lines = LinesOf(Run(GetParam(), document));
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_THAT(lines[0], ::testing::MatchesRegex("ObjectName: .*: '' vs 'resolved'"));
}

TEST_P(ResolvingLinks, LeavesTheCopyOnTheScratchPageIfItFails)
{
    DocumentPointer document = NewDocumentWithLink();
    whenResolved = [](OrvDoc::Document&) { throw std::domain_error("no such link"); };
    EXPECT_THROW(Run(GetParam(), document), std::domain_error);
    EXPECT_NE(document, nullptr);
    EXPECT_NE(ScratchContent().GetChildren().first, nullptr);
}

TEST_P(ResolvingLinksThroughFile, DependsOnTheDocumentThatIsReadAgain)
{
    auto document = NewDocument();
    document->SetInfoFlag(OrvDoc::DocumentInfoFlagKey::NormalizedPDFLinks, true);
    TestRoundTripStructure(document, AllOptions());
    EXPECT_THAT(calls, IsEmpty());
}

TEST_P(ResolvingLinksThroughFile, AddsErrorsThatNobodyTells)
{
    DocumentPointer document = NewDocumentWithLink();
    whenResolved = [](OrvDoc::Document& resolved) {
        resolved.GetActiveErrors().Add("of resolving");
        ContentOf(resolved).GetActiveErrors().Add("of resolving too");
    };
    const RoundTripResult result = TestRoundTripStructure(document, AllOptions());
    EXPECT_THAT(TextsOf(document->GetActiveErrors().GetAllErrors()), ElementsAre("of resolving"));
    EXPECT_THAT(result.documentErrors, IsEmpty());
    EXPECT_THAT(result.contentErrors, IsEmpty());
}

TEST_P(ResolvingLinksThroughFile, FindsTheFileInTheHandsOfTheDocument)
{
    DocumentPointer document = NewDocumentWithLink();
    whenResolved = [](OrvDoc::Document& resolved) {
        EXPECT_NE(resolved.GetProperties().Find(RemoveFileKey), nullptr);
        throw std::domain_error("no such link");
    };
    EXPECT_THROW(TestRoundTripStructure(document, AllOptions()), std::domain_error);
    EXPECT_EQ(document->GetFilePath(), folder.GetPath() / OnlyFileName());
    document.reset();
    EXPECT_THAT(FileNames(), IsEmpty());
}

TEST_P(ResolvingLinksInMemory, AddsErrorsThatCountAsNew)
{
    DocumentPointer document = NewDocumentWithLink();
    whenResolved = [](OrvDoc::Document& resolved) {
        resolved.GetActiveErrors().Add("of resolving");
        ContentOf(resolved).GetActiveErrors().Add("of resolving too");
    };
    const RoundTripResult result = TestRoundTripStructure(*document, AllOptions());
    EXPECT_THAT(TextsOf(result.documentErrors), ElementsAre("of resolving"));
    EXPECT_THAT(TextsOf(result.contentErrors), ElementsAre("of resolving too"));
}

// Resolving is the last step ahead of the comparison, and so tells when that begins.
TEST_P(ResolvingLinksInMemory, LeavesTheCopyOnTheScratchPageIfTheComparisonFails)
{
    DocumentPointer document = NewDocumentWithLink();
    ActingPath& path = Place(ContentOf(*document), std::make_unique<ActingPath>(Way::InMemory));
    whenResolved = [&path](OrvDoc::Document&) {
        path.whenNamed = [] { throw std::domain_error("no such name"); };
    };
    EXPECT_THROW(TestRoundTripStructure(*document, AllOptions()), std::domain_error);
    path.whenNamed = nullptr;
    EXPECT_NE(ScratchContent().GetChildren().first, nullptr);
}

} // namespace
} // namespace HarrowSupport::Testing
