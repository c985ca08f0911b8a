// A round trip finds nothing to tell about any document that can be made, through a file and in memory. Law
// by law: the first page comes back, the trip adds no errors, and one trip behind another finds nothing
// either.

#include <harrow_support/round_trip.h>

#include <orv_doc/content.h>
#include <orv_doc/scratch_document.h>
#include <orv_sys/error.h>

#include "support/document_laws.h"
#include "support/document_makers.h"
#include "support/recording_reporter.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

constexpr std::uint32_t documents = 300;

std::vector<std::string> LinesOf(const RoundTripResult& result)
{
    std::vector<std::string> lines;
    for (const HarrowSupport::Difference& difference : result.differences)
        lines.push_back(difference.label + ": " + difference.message);
    for (const auto& error : result.documentErrors)
        lines.push_back("new error of the document: " + error->GetText());
    for (const auto& error : result.contentErrors)
        lines.push_back("new error of the content: " + error->GetText());
    return lines;
}

// A trip that threw leaves its copy there, with which the next one would be compared.
void EmptyScratchContent()
{
    OrvDoc::Content& content = ContentOf(OrvDoc::GetScratchDocument());
    while (content.GetChildren().first)
        delete content.GetChildren().first->ExtractFromParent();
}

Comparators::Options EveryOption()
{
    Comparators::Options options = AllOptions();
    options.looseImageLinks = true;
    return options;
}

TEST(RoundTripLaws, ATripThroughAFileFindsNothing)
{
    ExpectLaw(
        [](const PlannedDocument& plan) {
            EmptyScratchContent();
            auto document = MakeDocument(plan);
            return Lines(LinesOf(TestRoundTripStructure(document, EveryOption())));
        },
        documents);
}

TEST(RoundTripLaws, ATripInMemoryFindsNothing)
{
    ExpectLaw(
        [](const PlannedDocument& plan) {
            EmptyScratchContent();
            const auto document = MakeDocument(plan);
            return Lines(LinesOf(TestRoundTripStructure(*document, EveryOption())));
        },
        documents);
}

TEST(RoundTripLaws, TripsOfEitherKindOneBehindAnotherFindNothing)
{
    ExpectLaw(
        [](const PlannedDocument& plan) {
            EmptyScratchContent();
            auto document = MakeDocument(plan);
            std::string text = Lines(LinesOf(TestRoundTripStructure(*document, EveryOption())));
            text += Lines(LinesOf(TestRoundTripStructure(document, EveryOption())));
            text += Lines(LinesOf(TestRoundTripStructure(*document, EveryOption())));
            text += Lines(LinesOf(TestRoundTripStructure(document, EveryOption())));
            return text;
        },
        documents / 3);
}

TEST(RoundTripLaws, ATripLeavesTheScratchPageEmpty)
{
    ExpectLaw(
        [](const PlannedDocument& plan) {
            const auto document = MakeDocument(plan);
            TestRoundTripStructure(*document, EveryOption());
            const bool isEmpty = !ContentOf(OrvDoc::GetScratchDocument()).GetChildren().first;
            EmptyScratchContent();
            return std::string(isEmpty ? "" : "objects are left on the scratch page");
        },
        documents / 10);
}

} // namespace
} // namespace HarrowSupport::Testing
