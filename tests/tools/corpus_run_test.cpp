#include "corpus/corpus_run.h"

#include "support/child_process.h"
#include "support/file_bytes.h"
#include "support/page_images.h"
#include "support/pdf_files.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <nlohmann/json.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <sstream>
#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using Corpus::FileOutcome;
using Corpus::RunOverFile;
using Corpus::RunSettings;
using Corpus::TripOutcome;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class CorpusRun : public ::testing::Test
{
protected:
    CorpusRun()
    {
        settings.trialProgram = HARROW_TOOLS_FOLDER "/try_document";
        settings.looks = false;
    }

    /// Runs the lines of a shell script in the place of try_document, over a file that it need not read.
    TripOutcome RunScript(const std::string& lines)
    {
        settings.trialProgram = programs.Write("script", "#!/bin/sh\n" + lines);
        boost::filesystem::permissions(settings.trialProgram, boost::filesystem::owner_all);
        folder.Write("a.pdf", PdfFileOfPages({""}));
        return RunOverFile(folder.GetPath().string(), "a.pdf", settings).kept;
    }

    TemporaryFolder folder;
    TemporaryFolder programs;
    RunSettings settings;
};

TEST_F(CorpusRun, TellsOfASoundFileBothWays)
{
    folder.Write("a.pdf", PdfFileOfPages({"0 0 10 10 re f\n"}));
    const FileOutcome outcome = RunOverFile(folder.GetPath().string(), "a.pdf", settings);
    for (const TripOutcome* const trip : {&outcome.kept, &outcome.rewritten}) {
        EXPECT_TRUE(trip->IsEqual()) << trip->message;
        EXPECT_EQ(trip->pages, 1U);
        EXPECT_EQ(trip->objects.at("Path"), 1U);
        EXPECT_THAT(trip->leftFiles, ElementsAre());
        EXPECT_GT(trip->peakMebibytes, 0.0);
    }
}

TEST_F(CorpusRun, TellsWhyAFileIsRefused)
{
    folder.Write("a.pdf", "no PDF file");
    const FileOutcome outcome = RunOverFile(folder.GetPath().string(), "a.pdf", settings);
    EXPECT_EQ(outcome.kept.ending, "2");
    EXPECT_THAT(outcome.kept.message, HasSubstr("a.pdf: "));
    EXPECT_EQ(outcome.kept.check, "-");
    EXPECT_FALSE(outcome.IsSound());
}

TEST_F(CorpusRun, SurvivesAProgramThatCrashes)
{
    EXPECT_EQ(RunScript("kill -SEGV $$\n").ending, "signal 11");
}

TEST_F(CorpusRun, StopsAProgramThatTakesTooLong)
{
    settings.trialLimits.time = std::chrono::milliseconds(200);
    const TripOutcome trip = RunScript("exec sleep 60\n");
    EXPECT_EQ(trip.ending, "out of time");
    EXPECT_LT(trip.seconds, 30.0);
}

TEST_F(CorpusRun, LimitsTheMemoryOfAProgram)
{
    settings.trialLimits.addressSpace = std::uint64_t{256} << 20;
    EXPECT_THAT(RunScript("ulimit -v >&2\nexit 2\n").message, HasSubstr("262144"));
}

TEST_F(CorpusRun, TellsWhichTemporaryFilesAreLeft)
{
    EXPECT_THAT(RunScript("touch $TMPDIR/left\necho refused >&2\nexit 2\n").leftFiles, ElementsAre("left"));
}

TEST_F(CorpusRun, SeesThatAPageLooksAnotherWay)
{
    if (!CanRenderPages())
        GTEST_SKIP() << "install poppler-utils to run this test";
    const TemporaryFolder scratch;
    const std::string other = scratch.Write("other.pdf", PdfFileOfPages({"0 0 50 50 re f\n"}));
    folder.Write("a.pdf", PdfFileOfPages({"0 0 10 10 re f\n"}));
    settings.trialProgram = programs.Write(
        "script",
        "#!/bin/sh\nfor last; do :; done\ncp " + other +
            " $last\necho '{\"pages\":1,\"objects\":{},\"active_errors\":0,\"error_texts\":[],"
            "\"limits\":{},\"incomplete_pages\":[],\"differences\":0,\"on_purpose\":0,\"labels\":{},"
            "\"difference_texts\":[],\"peak_mebibytes\":1}'\n");
    boost::filesystem::permissions(settings.trialProgram, boost::filesystem::owner_all);
    settings.looks = true;
    const FileOutcome outcome = RunOverFile(folder.GetPath().string(), "a.pdf", settings);
    EXPECT_GT(outcome.kept.look.shares.at(1), 0.0);
}

TEST_F(CorpusRun, KeepsTheSavedFilesWhereItIsTold)
{
    const TemporaryFolder kept;
    settings.keepFolder = kept.GetPath().string();
    boost::filesystem::create_directory(folder.GetPath() / "inner");
    folder.Write("inner/a.pdf", PdfFileOfPages({""}));
    RunOverFile(folder.GetPath().string(), "inner/a.pdf", settings);
    EXPECT_THAT(ListPdfFiles(settings.keepFolder),
                ElementsAre("inner/a.pdf.kept.pdf", "inner/a.pdf.rewritten.pdf"));
}

TEST_F(CorpusRun, TellsOfEachFileOnceAndInOrder)
{
    folder.Write("b.pdf", "no PDF file");
    folder.Write("a.PDF", "no PDF file");
    folder.Write("c.txt", "no PDF file");
    std::size_t told = 0;
    const std::vector<FileOutcome> outcomes =
        RunOverFiles(folder.GetPath().string(), ListPdfFiles(folder.GetPath().string()), settings,
                     [&](const FileOutcome&) { ++told; });
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0].file, "a.PDF");
    EXPECT_EQ(outcomes[1].file, "b.pdf");
    EXPECT_EQ(told, 2U);
}

class RunCorpusProgram : public ::testing::Test
{
protected:
    ProcessResult Run(std::vector<std::string> arguments)
    {
        arguments.insert(arguments.begin(), HARROW_TOOLS_FOLDER "/run_corpus");
        return RunProcess(arguments);
    }

    TemporaryFolder folder;
    TemporaryFolder results;
};

TEST_F(RunCorpusProgram, WritesALineOfJsonForEachFileAndASummary)
{
    folder.Write("a.pdf", PdfFileOfPages({"0 0 10 10 re f\n"}));
    folder.Write("b.pdf", "no PDF file");
    const std::string records = results.NameOf("records.jsonl");
    std::vector<std::string> arguments{"--no-looks", "--records", records, folder.GetPath().string()};
#if defined(__SANITIZE_ADDRESS__)
    // The sanitizer reserves terabytes.
    arguments.insert(arguments.begin(), {"--mebibytes", "0"});
#endif
    const ProcessResult result = Run(arguments);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_THAT(result.output, HasSubstr("2 files"));
    EXPECT_THAT(result.output, HasSubstr("refused: "));
    std::istringstream lines(FileBytes(records));
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line); ++count)
        EXPECT_NO_THROW(nlohmann::json::parse(line));
    EXPECT_EQ(count, 2U);
}

TEST_F(RunCorpusProgram, EndsInTroubleWithoutFilesToTry)
{
    const ProcessResult result =
        Run({"--records", results.NameOf("records.jsonl"), folder.GetPath().string()});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, HasSubstr("there is no PDF file in " + folder.GetPath().string()));
    EXPECT_FALSE(boost::filesystem::exists(results.NameOf("records.jsonl")));
}

TEST_F(RunCorpusProgram, EndsInTroubleWithAFolderThatIsNotThere)
{
    EXPECT_EQ(Run({folder.NameOf("missing")}).exitCode, 2);
    EXPECT_EQ(Run({}).exitCode, 2);
}

} // namespace
} // namespace HarrowSupport::Testing
