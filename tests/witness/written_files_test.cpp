// What other programs say about the files that are written: qpdf finds nothing wrong with them, and pdftoppm
// shows them as it shows the files that they were made from.

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/child_process.h"
#include "support/page_images.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

namespace HarrowSupport::Testing
{
namespace
{

std::string NameOfExample(const std::string& file)
{
    return std::string(HARROW_SOURCE_FOLDER) + "/examples/data/" + file;
}

class WrittenFiles : public ::testing::TestWithParam<const char*>
{
protected:
    WrittenFiles()
    {
        const auto document = OrvDoc::Document::Create(NameOfExample(GetParam()), OrvDoc::ReadOptions());
        document->Save(folder.NameOf("out.pdf"), OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full));
    }

    TemporaryFolder folder;
};

TEST_P(WrittenFiles, AreSoundToQpdf)
{
    if (RunProcess({"qpdf", "--version"}).exitCode == 127) {
        GTEST_SKIP() << "install qpdf to run this test";
    }
    const ProcessResult check = RunProcess({"qpdf", "--check", folder.NameOf("out.pdf")});
    EXPECT_EQ(check.exitCode, 0) << check.output << check.errors;
}

TEST_P(WrittenFiles, LookTheSameToPdftoppm)
{
    if (!CanRenderPages()) {
        GTEST_SKIP() << "install poppler-utils to run this test";
    }
    const PageImages before = RenderPages(NameOfExample(GetParam()));
    const PageImages after = RenderPages(folder.NameOf("out.pdf"));
    ASSERT_FALSE(before.empty());
    // Not as texts: nobody wants to read the difference of two pictures.
    EXPECT_TRUE(before == after) << "compare the pages of " << GetParam() << " and of its rewritten form";
}

INSTANTIATE_TEST_SUITE_P(Leaflets, WrittenFiles, ::testing::Values("leaflet-v1.pdf", "leaflet-v2.pdf"));

} // namespace
} // namespace HarrowSupport::Testing
