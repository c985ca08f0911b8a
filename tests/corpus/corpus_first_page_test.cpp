// The first page of each real file goes through the round trip of a copy of it, with a file and without.

#include "corpus/corpus_run.h"
#include "support/child_process.h"
#include "support/corpus_folder.h"
#include "support/parallel.h"
#include "support/pdf_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::HasSubstr;
using ::testing::Not;

std::vector<ProcessResult> TryFirstPages(const std::vector<std::string>& files,
                                         const std::vector<std::string>& options)
{
    std::vector<ProcessResult> results(files.size());
    ForEachAtOnce(files.size(), [&](std::size_t i) {
        // A process that is stopped leaves its temporary files behind; they go with this folder.
        const TemporaryFolder scratch;
        std::vector<std::string> command{HARROW_EXAMPLES_FOLDER "/round_trip"};
        command.insert(command.end(), options.begin(), options.end());
        command.push_back(CorpusFolder() + "/" + files[i]);
        results[i] = RunProcess(command, Corpus::RunSettings::DefaultTrialLimits(),
                                {"TMPDIR=" + scratch.GetPath().string()});
    });
    return results;
}

/// Whether the line tells of a difference that even equal sides have.
bool IsOnPurpose(const std::string& line)
{
    return line.find("\tdifference\tSoftMaskTransferFunction\t") != std::string::npos ||
           line.find("\tdifference\tUncoloredPatternPaintHasImage\t") != std::string::npos;
}

/// A file that does not open, or opens without a page, has no first page to try.
bool HasFirstPage(const ProcessResult& trip)
{
    return trip.exitCode != 2;
}

void ExpectKept(const ProcessResult& trip)
{
    EXPECT_FALSE(trip.timedOut);
    EXPECT_EQ(trip.signal, 0);
    EXPECT_THAT(trip.errors, Not(HasSubstr("bad_alloc")));
    if (!HasFirstPage(trip)) {
        EXPECT_NE(trip.errors, "");
        return;
    }
    std::istringstream lines(trip.output);
    bool hasReportOnPurpose = false;
    for (std::string line; std::getline(lines, line);) {
        hasReportOnPurpose = hasReportOnPurpose || IsOnPurpose(line);
        if (!IsOnPurpose(line)) {
            EXPECT_THAT(line, Not(HasSubstr("\tdifference\t")));
        }
    }
    EXPECT_EQ(trip.exitCode, hasReportOnPurpose ? 1 : 0) << trip.output << trip.errors;
}

class CorpusFirstPages : public ::testing::TestWithParam<std::vector<std::string>>
{};

TEST_P(CorpusFirstPages, ComeBackEqualToACopy)
{
    if (!WhyNoCorpus().empty())
        GTEST_SKIP() << WhyNoCorpus();
    const std::vector<std::string> files = ListPdfFiles(CorpusFolder());
    const std::vector<ProcessResult> trips = TryFirstPages(files, GetParam());
    std::size_t tried = 0;
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i]);
        ExpectKept(trips[i]);
        tried += HasFirstPage(trips[i]) ? 1 : 0;
    }
    EXPECT_TRUE(tried > 0 || !IsChosenCorpus()) << "not a single page was tried";
}

INSTANTIATE_TEST_SUITE_P(WithFile, CorpusFirstPages, ::testing::Values(std::vector<std::string>{}));
INSTANTIATE_TEST_SUITE_P(WithoutFile, CorpusFirstPages,
                         ::testing::Values(std::vector<std::string>{"--flush"}));

} // namespace
} // namespace HarrowSupport::Testing
