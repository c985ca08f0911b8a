#include "example_runs.h"
#include "support/approved_text.h"
#include "support/child_process.h"
#include "support/pdf_text.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class RoundTripExample : public ::testing::Test
{
protected:
    ProcessResult Run(const std::vector<std::string>& arguments)
    {
        return RunExample("round_trip", arguments, {"TMPDIR=" + temporaryFiles.GetPath().string()});
    }

    TemporaryFolder folder;
    TemporaryFolder temporaryFiles;
};

constexpr char oneFileWithoutAnything[] =
    "1 file, 0 differences, 0 new errors of documents, 0 new errors of contents\n";

TEST_F(RoundTripExample, FindsTheLeafletUnchangedByAFile)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, oneFileWithoutAnything);
    EXPECT_EQ(result.errors, "");
}

TEST_F(RoundTripExample, FindsTheLeafletUnchangedWithoutAFile)
{
    const ProcessResult result = Run({"--flush", ExampleFile("leaflet-v1.pdf")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, oneFileWithoutAnything);
    EXPECT_EQ(result.errors, "");
}

TEST_F(RoundTripExample, LeavesNoTemporaryFile)
{
    ASSERT_EQ(Run({ExampleFile("leaflet-v1.pdf")}).exitCode, 0);
    EXPECT_TRUE(boost::filesystem::is_empty(temporaryFiles.GetPath()));
}

TEST_F(RoundTripExample, WritesNoFileIfAskedNotTo)
{
    const std::string missing = folder.NameOf("missing");
    const std::string leaflet = ExampleFile("leaflet-v1.pdf");
    EXPECT_EQ(RunExample("round_trip", {"--flush", leaflet}, {"TMPDIR=" + missing}).exitCode, 0);
    EXPECT_EQ(RunExample("round_trip", {leaflet}, {"TMPDIR=" + missing}).exitCode, 2);
}

TEST_F(RoundTripExample, TellsWhatCouldNotBeWritten)
{
    const std::string file =
        folder.Write("odd.pdf", FileThatIsWrittenAnew("/Tag /Missing BDC " + Triangle("10 10") + "EMC"));
    for (const std::vector<std::string>& options : {std::vector<std::string>{}, {"--flush"}}) {
        std::vector<std::string> arguments = options;
        arguments.push_back(file);
        const ProcessResult result = Run(arguments);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_THAT(result.output,
                    StartsWith(file + "\tcontent error\tpage 1: marked contents whose property "
                                      "list is missing"));
        EXPECT_THAT(result.output, EndsWith("\n1 file, 0 differences, 0 new errors of documents, 1 new error "
                                            "of contents\n"));
    }
}

TEST_F(RoundTripExample, GoesOnBehindAFileThatFails)
{
    const std::string missing = folder.NameOf("missing.pdf");
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf"), missing, ExampleFile("leaflet-v2.pdf")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output,
              "3 files, 0 differences, 0 new errors of documents, 0 new errors of contents, 1 file failed\n");
    EXPECT_THAT(result.errors, StartsWith("round_trip: " + missing + " failed: "));
}

TEST_F(RoundTripExample, FailsAFileWhosePageTreeHoldsNoPage)
{
    const std::string file = folder.Write("empty.pdf", PdfFileOfPages({}));
    const ProcessResult result = Run({file});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.errors, "round_trip: " + file + " failed: there is no page that can be read\n");
}

TEST_F(RoundTripExample, NeedsAFile)
{
    const ProcessResult result = Run({"--flush"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("no FILE is given"));
}

TEST_F(RoundTripExample, ExplainsItself)
{
    const ProcessResult result = Run({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/round_trip-help.txt"));
}

/// What is saved of an encrypted file is encrypted too, and the round trip reads it without a password.
class EncryptedRoundTrip : public RoundTripExample
{
protected:
    void SetUp() override { WriteEncryptedLeaflet(encrypted); }

    std::string encrypted = folder.NameOf("encrypted.pdf");
};

TEST_F(EncryptedRoundTrip, NeedsNoFileIfItHasAPassword)
{
    EXPECT_EQ(Run({"--flush", "--password", "secret", encrypted}).output, oneFileWithoutAnything);
    EXPECT_THAT(Run({"--flush", encrypted}).output, EndsWith(", 1 file failed\n"));
}

TEST_F(EncryptedRoundTrip, LeavesNothingToTheNextFile)
{
    const ProcessResult result = Run({"--password", "secret", encrypted, ExampleFile("leaflet-v2.pdf")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output,
              "2 files, 0 differences, 0 new errors of documents, 0 new errors of contents, 1 file failed\n");
    EXPECT_THAT(result.errors, HasSubstr("password"));
}

} // namespace
} // namespace HarrowSupport::Testing
