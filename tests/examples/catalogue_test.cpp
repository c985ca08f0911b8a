#include "example_runs.h"
#include "support/approved_text.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <orv_doc/content.h>
#include <orv_doc/content_object.h>
#include <orv_doc/document.h>
#include <orv_doc/page.h>
#include <orv_doc/read_options.h>

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class CatalogueExample : public ::testing::Test
{
protected:
    ProcessResult Run(const std::vector<std::string>& arguments)
    {
        return RunExample("catalogue", arguments, {"TMPDIR=" + temporaryFiles.GetPath().string()});
    }

    TemporaryFolder folder;
    TemporaryFolder temporaryFiles;
    std::string out = folder.NameOf("out.pdf");
};

std::vector<std::string> NamesIn(const std::string& file)
{
    const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    std::vector<std::string> names;
    for (auto page = document->GetPagesBegin(); page != document->GetPagesEnd(); ++page)
        names.push_back(page->GetContent().GetChildren().first->GetName());
    return names;
}

TEST_F(CatalogueExample, WritesAPageForEachPictureUnderItsName)
{
    const ProcessResult result = Run({"--only", "DeviceGray-DecodeInvert-bps", out});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.errors, "");
    const std::vector<std::string> names = NamesIn(out);
    ASSERT_EQ(names.size(), 42u);
    EXPECT_EQ(names[0], "Image-DeviceGray-DecodeInvert-bps1");
    EXPECT_EQ(names[4], "Image-DeviceGray-DecodeInvert-bps16");
    EXPECT_EQ(names[5], "Image-DeviceGray-DecodeInvert-bps1-SoftMask(bps1-DecodeIdentity)");
    EXPECT_EQ(names[41], "Image-DeviceGray-DecodeInvert-bps8-SoftMaskViaTB(DecodeWeird)");
}

TEST_F(CatalogueExample, CountsPicturesThatComeBackUnchanged)
{
    const ProcessResult result = Run({"--only", "ImageMask-", out});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "2 cases, 0 differences, 0 errors\n");
    EXPECT_THAT(NamesIn(out), ElementsAre("ImageMask-DecodeIdentity-bps1", "ImageMask-DecodeInvert-bps1"));
}

TEST_F(CatalogueExample, LeavesNoTemporaryFile)
{
    ASSERT_EQ(Run({"--only", "ImageMask-", out}).exitCode, 0);
    EXPECT_TRUE(boost::filesystem::is_empty(temporaryFiles.GetPath()));
}

TEST_F(CatalogueExample, TellsHowFarItIs)
{
    const ProcessResult result = Run({"--only", "bps1-SoftMask(", out});
    EXPECT_EQ(result.exitCode, 0) << result.output;
    EXPECT_EQ(result.output, "288 cases, 0 differences, 0 errors\n");
    EXPECT_EQ(result.errors, "catalogue: 100 of 288 cases\ncatalogue: 200 of 288 cases\n");
}

TEST_F(CatalogueExample, NeedsAFolderThatIsThere)
{
    const ProcessResult result = Run({"--only", "ImageMask-", folder.NameOf("missing") + "/out.pdf"});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("catalogue: "));
}

TEST_F(CatalogueExample, RefusesANameThatNoPictureHas)
{
    const ProcessResult result = Run({"--only", "bps32", out});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_THAT(result.errors, HasSubstr("no picture's name contains 'bps32'"));
    EXPECT_FALSE(boost::filesystem::exists(out));
}

TEST_F(CatalogueExample, NeedsAFile)
{
    const ProcessResult result = Run({});
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("no OUT is given"));
}

TEST_F(CatalogueExample, ExplainsItself)
{
    const ProcessResult result = Run({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_TRUE(IsApproved(result.output, "tests/examples/approved/catalogue-help.txt"));
}

} // namespace
} // namespace HarrowSupport::Testing
