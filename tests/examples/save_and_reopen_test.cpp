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

using ::testing::HasSubstr;
using ::testing::StartsWith;

class SaveAndReopenExample : public ::testing::Test
{
protected:
    ProcessResult Run(const std::vector<std::string>& arguments)
    {
        return RunExample("save_and_reopen", arguments, {"TMPDIR=" + temporaryFiles.GetPath().string()});
    }

    TemporaryFolder folder;
    TemporaryFolder temporaryFiles;
};

TEST_F(SaveAndReopenExample, FindsTheLeafletUnchanged)
{
    const ProcessResult result = Run({ExampleFile("leaflet-v1.pdf")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "save_and_reopen: 0 active errors, 0 differences\n");
}

TEST_F(SaveAndReopenExample, LeavesNoTemporaryFile)
{
    ASSERT_EQ(Run({ExampleFile("leaflet-v1.pdf")}).exitCode, 0);
    EXPECT_TRUE(boost::filesystem::is_empty(temporaryFiles.GetPath()));
}

TEST_F(SaveAndReopenExample, ListsAndCountsActiveErrorsByPage)
{
    const std::string same = Triangle("10 10");
    const std::string file = folder.Write("odd.pdf", PdfFileOfPages({same, same + "1 2 wobble\n"}));
    const ProcessResult result = Run({file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(result.output, StartsWith("error\tpage 2\t"));
    EXPECT_THAT(result.output, HasSubstr("wobble"));
    EXPECT_EQ(result.errors, "save_and_reopen: 1 active error, 0 differences\n");
}

TEST_F(SaveAndReopenExample, FindsWhatStandsBehindAnUnclosedArrayAgain)
{
    // The operator that closes the array takes effect; what is kept of the content must still have it.
    const std::string content = "q 1 0 0 1 5 5 cm [3 0 Q " + Triangle("10 10") + unmodelled;
    const std::string file = folder.Write("odd.pdf", PdfFileOfPages({content}));
    const ProcessResult result = Run({file});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("array or dictionary without end"));
}

TEST_F(SaveAndReopenExample, FindsAColourTableAgainOfWhichOnlyTheBeginningIsReadable)
{
    // Deflated data: a block that is stored as it is, with two colours, and a block of a kind that isn't.
    const std::string table("\x78\x01\x00\x06\x00\xF9\xFF\x00\x80\xFF\xFF\x80\x00\x07", 14);
    const std::string content = "/Table cs 1 sc " + Triangle("10 10");
    const std::string file = folder.Write(
        "odd.pdf", PdfFileOfPages({content}, "", "/ColorSpace << /Table [/Indexed /DeviceRGB 1 5 0 R] >>",
                                  {PdfStream(table, "/Filter /FlateDecode")}));
    const ProcessResult result = Run({file});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_THAT(result.output, HasSubstr("object 5 0: the flate data is damaged"));
}

TEST_F(SaveAndReopenExample, KeepsWhatWasSaved)
{
    const std::string kept = folder.NameOf("kept.pdf");
    ASSERT_EQ(Run({"--keep", kept, ExampleFile("leaflet-v1.pdf")}).exitCode, 0);
    const ProcessResult comparison = RunExample("compare_documents", {ExampleFile("leaflet-v1.pdf"), kept});
    EXPECT_EQ(comparison.exitCode, 0) << comparison.output << comparison.errors;
}

TEST_F(SaveAndReopenExample, KeepsTheContentOfAPageThatItCouldNotReadWhole)
{
    const std::string kept = folder.NameOf("kept.pdf");
    ASSERT_EQ(Run({"--keep", kept, folder.Write("odd.pdf", FileWithUnmodelled(Triangle("10 10")))}).exitCode,
              0);
    EXPECT_THAT(Run({kept}).errors, HasSubstr("1 active error, "));
}

TEST_F(SaveAndReopenExample, WritesSuchAContentAnewIfAsked)
{
    const std::string kept = folder.NameOf("kept.pdf");
    const std::string file = folder.Write("odd.pdf", FileWithUnmodelled(Triangle("10 10")));
    ASSERT_EQ(Run({"--rewrite", "--keep", kept, file}).exitCode, 0);
    EXPECT_THAT(Run({kept}).errors, HasSubstr("0 active errors, "));
}

TEST_F(SaveAndReopenExample, ReplacesAKeptFile)
{
    const std::string kept = folder.Write("kept.pdf", "old");
    ASSERT_EQ(Run({"--keep", kept, ExampleFile("leaflet-v1.pdf")}).exitCode, 0);
    EXPECT_GT(boost::filesystem::file_size(kept), 1000u);
}

TEST_F(SaveAndReopenExample, NamesAFileThatIsMissing)
{
    const ProcessResult result = Run({folder.NameOf("missing.pdf")});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, StartsWith("save_and_reopen: "));
    EXPECT_THAT(result.errors, HasSubstr(folder.NameOf("missing.pdf")));
}

TEST_F(SaveAndReopenExample, NamesATemporaryFolderThatIsMissing)
{
    const std::string missing = folder.NameOf("missing");
    const ProcessResult result =
        RunExample("save_and_reopen", {ExampleFile("leaflet-v1.pdf")}, {"TMPDIR=" + missing});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr(missing));
}

TEST_F(SaveAndReopenExample, NeedsAFile)
{
    const ProcessResult result = Run({});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("no FILE is given"));
}

TEST_F(SaveAndReopenExample, ExplainsItself)
{
    const ProcessResult result = Run({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/save_and_reopen-help.txt"));
}

} // namespace
} // namespace HarrowSupport::Testing
