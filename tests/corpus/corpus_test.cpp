// Runs the example programs over a folder of real files, sound and damaged ones. Each program runs in a
// process of its own, so that a file that brings one down does not take the others with it. The table of
// outcomes goes to standard output and to corpus-outcomes.tsv in the build folder.

#include "support/corpus_run.h"

#include <boost/filesystem/operations.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::Not;

class Corpus : public ::testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        if (!boost::filesystem::is_directory(CorpusFolder()))
            return;
        outcomes = RunOverFolder(CorpusFolder(), CorpusLimits());
        remarks = ReadRemarks(CorpusFolder());
        if (outcomes.empty())
            return;
        WriteAlignedTable(std::cout, outcomes);
        std::ofstream table(HARROW_EXAMPLES_FOLDER "/../corpus-outcomes.tsv");
        WriteTable(table, outcomes);
    }

    void SetUp() override
    {
        if (!boost::filesystem::is_directory(CorpusFolder())) {
            GTEST_SKIP() << "there is no folder " << CorpusFolder()
                         << "; HARROW_CORPUS_DIR names another folder of PDF files";
        }
        ASSERT_FALSE(outcomes.empty()) << "there is no PDF file in " << CorpusFolder();
    }

    static std::vector<CorpusOutcome> outcomes;
    static std::map<std::string, std::string> remarks;
};

std::vector<CorpusOutcome> Corpus::outcomes;
std::map<std::string, std::string> Corpus::remarks;

void ExpectAnAnswer(const ProcessResult& result)
{
    EXPECT_THAT(Ending(result), AnyOf("0", "1", "2")) << result.errors;
    // The memory that a file may ask for is limited by the reader, before the system has to refuse it.
    EXPECT_THAT(result.errors, Not(HasSubstr("bad_alloc")));
    if (result.exitCode == 2) {
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.errors, "");
    }
}

/// The message of a program without the program's name.
std::string Reason(const ProcessResult& result)
{
    const std::size_t colon = result.errors.find(": ");
    return colon == std::string::npos ? result.errors : result.errors.substr(colon + 2);
}

TEST_F(Corpus, EveryFileGetsAnAnswerInTimeAndMemory)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        ExpectAnAnswer(outcome.roundTrip.process);
        ExpectAnAnswer(outcome.rewritten.process);
        ExpectAnAnswer(outcome.comparisonWithItself);
    }
}

TEST_F(Corpus, EveryFileThatOpensEqualsItself)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        if (outcome.roundTrip.process.exitCode == 2) {
            EXPECT_EQ(outcome.comparisonWithItself.exitCode, 2);
            EXPECT_EQ(Reason(outcome.comparisonWithItself), Reason(outcome.roundTrip.process));
        } else {
            EXPECT_TRUE(IsEqual(outcome.comparisonWithItself)) << outcome.comparisonWithItself.output;
        }
    }
}

TEST_F(Corpus, EverySoundFileOpens)
{
    if (remarks.empty())
        GTEST_SKIP() << "the folder has no MANIFEST.tsv that tells sound files from damaged ones";
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        const auto remark = remarks.find(outcome.file);
        ASSERT_NE(remark, remarks.end()) << "the manifest does not name the file";
        const bool mayFail = remark->second.find("qpdf --check fails") != std::string::npos ||
                             remark->second.find("must fail politely") != std::string::npos;
        if (!mayFail) {
            EXPECT_NE(outcome.roundTrip.process.exitCode, 2) << outcome.roundTrip.process.errors;
        }
    }
}

TEST_F(Corpus, EveryFileComesBackEqual)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        EXPECT_TRUE(outcome.roundTrip.process.exitCode != 1 || IsEqual(outcome.roundTrip.process))
            << outcome.roundTrip.process.output;
    }
}

TEST_F(Corpus, EveryFileComesBackEqualWhenItsContentsAreWrittenAnew)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        EXPECT_EQ(IsEqual(outcome.rewritten.process), IsEqual(outcome.roundTrip.process))
            << outcome.rewritten.process.output;
    }
}

/// A file without pages opens, but has no first page to try.
void ExpectFirstPageKept(const ProcessResult& trip, const ProcessResult& opening)
{
    const bool hasNoPage = trip.errors.find("there is no page that can be read") != std::string::npos;
    std::istringstream lines(trip.output);
    bool hasReportOnPurpose = false;
    for (std::string line; std::getline(lines, line);) {
        const bool isOnPurpose =
            line.find("\tdifference\tSoftMaskTransferFunction\t") != std::string::npos ||
            line.find("\tdifference\tUncoloredPatternPaintHasImage\t") != std::string::npos;
        hasReportOnPurpose = hasReportOnPurpose || isOnPurpose;
        if (!isOnPurpose) {
            EXPECT_THAT(line, Not(HasSubstr("\tdifference\t")));
        }
    }
    const char* const kept = hasReportOnPurpose ? "1" : "0";
    EXPECT_EQ(Ending(trip), opening.exitCode == 2 || hasNoPage ? "2" : kept) << trip.output << trip.errors;
    EXPECT_THAT(trip.errors, Not(HasSubstr("bad_alloc")));
}

TEST_F(Corpus, TheFirstPageOfEveryFileComesBackEqualToACopy)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        ExpectFirstPageKept(outcome.firstPage, outcome.roundTrip.process);
        ExpectFirstPageKept(outcome.firstPageWithoutFile, outcome.roundTrip.process);
    }
}

void ExpectCleanToQpdf(const RoundTripOutcome& outcome)
{
    EXPECT_THAT(Verdict(outcome), AnyOf("clean", "-")) << outcome.check.output << outcome.check.errors;
}

TEST_F(Corpus, EverySavedFileIsCleanToQpdf)
{
    for (const CorpusOutcome& outcome : outcomes) {
        SCOPED_TRACE(outcome.file);
        if (Verdict(outcome.roundTrip) == "no qpdf")
            GTEST_SKIP() << "qpdf, which this test asks, is not installed";
        ExpectCleanToQpdf(outcome.roundTrip);
        ExpectCleanToQpdf(outcome.rewritten);
    }
}

} // namespace
} // namespace HarrowSupport::Testing
