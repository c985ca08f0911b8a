// Runs over a folder of real files, sound and damaged ones, as tools/run_corpus does for users, and holds the
// bars. The table of outcomes goes to standard output and the records to corpus.jsonl in the build folder.

#include "corpus/bars.h"
#include "corpus/corpus_run.h"
#include "corpus/summary.h"
#include "support/corpus_folder.h"
#include "support/pdf_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using Corpus::FileOutcome;
using Corpus::TripOutcome;
using ::testing::IsEmpty;

/// Runs once for all tests of the suite.
class CorpusBars : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        if (!WhyNoCorpus().empty())
            return;
        Corpus::RunSettings settings;
        settings.trialProgram = HARROW_TOOLS_FOLDER "/try_document";
        settings.looks = WhyNotRendered().empty();
        std::ofstream records(HARROW_TOOLS_FOLDER "/../corpus.jsonl");
        outcomes = RunOverFiles(
            CorpusFolder(), ListPdfFiles(CorpusFolder()), settings,
            [&](const FileOutcome& outcome) { records << Corpus::ToJsonLine(outcome) << std::endl; });
        if (outcomes.empty())
            return;
        Corpus::WriteTable(std::cout, outcomes, std::numeric_limits<std::size_t>::max());
        Corpus::WriteBars(std::cout, outcomes);
    }

    static void TearDownTestSuite() { outcomes.clear(); }

    void SetUp() override
    {
        if (!WhyNoCorpus().empty())
            GTEST_SKIP() << WhyNoCorpus();
        ASSERT_FALSE(outcomes.empty()) << "there is no PDF file in " << CorpusFolder();
    }

    static std::vector<FileOutcome> outcomes;
};

std::vector<FileOutcome> CorpusBars::outcomes;

void ExpectAllHeld(const std::vector<Corpus::Bar>& bars)
{
    for (const Corpus::Bar& bar : bars)
        EXPECT_TRUE(bar.IsHeld()) << bar.name << ": " << ::testing::PrintToString(bar.failures);
}

TEST_F(CorpusBars, AreHeldWithContentsAsTheyAreInTheFiles)
{
    ExpectAllHeld(RaiseBars(outcomes, &FileOutcome::kept));
}

TEST_F(CorpusBars, AreHeldWithContentsWrittenAnew)
{
    ExpectAllHeld(RaiseBars(outcomes, &FileOutcome::rewritten));
}

void ExpectLooksAndTextsKept(const FileOutcome& outcome, const TripOutcome& trip)
{
    SCOPED_TRACE(outcome.file + ": run_corpus --keep shows what it became of");
    // Edges that fall on the other side of a pixel's middle.
    EXPECT_LE(trip.look.GetWorstShare(), 0.001);
    EXPECT_THAT(trip.look.pagesOfOtherText, IsEmpty());
    EXPECT_THAT(trip.look.pagesOfOtherPictures, IsEmpty());
}

TEST_F(CorpusBars, NoFileOfTheChosenCorpusFailsAny)
{
    if (!IsChosenCorpus())
        GTEST_SKIP() << "a folder of other files may have some that fail within the bars";
    std::size_t comparedPages = 0;
    for (const FileOutcome& outcome : outcomes) {
        for (const TripOutcome* const trip : {&outcome.kept, &outcome.rewritten}) {
            if (!trip->IsThrough())
                continue;
            EXPECT_EQ(trip->differences, 0U) << outcome.file;
            comparedPages += trip->look.shares.size();
            ExpectLooksAndTextsKept(outcome, *trip);
        }
    }
    EXPECT_TRUE(comparedPages > 0 || !WhyNotRendered().empty()) << "not a single page was compared";
}

} // namespace
} // namespace HarrowSupport::Testing
