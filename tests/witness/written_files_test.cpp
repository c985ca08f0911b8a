// What other programs say about the files that are written: qpdf finds nothing wrong with them, and pdftoppm
// shows them as it shows the files that they were made from.

#include <orv_doc/document.h>
#include <orv_doc/read_options.h>
#include <orv_doc/write_options.h>

#include "support/child_process.h"
#include "support/file_bytes.h"
#include "support/temporary_folder.h"

#include <boost/filesystem/operations.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace HarrowSupport::Testing
{
namespace
{

std::string NameOfExample(const std::string& file)
{
    return std::string(HARROW_SOURCE_FOLDER) + "/examples/data/" + file;
}

bool IsInstalled(const std::string& program)
{
    return RunProcess({program, "-v"}).exitCode != 127;
}

// The pages as pictures, in order.
std::vector<std::string> Render(const TemporaryFolder& folder, const std::string& prefix,
                                const std::string& file)
{
    const ProcessResult run = RunProcess({"pdftoppm", "-r", "72", file, folder.NameOf(prefix)});
    EXPECT_EQ(run.exitCode, 0) << run.errors;
    std::vector<boost::filesystem::path> names;
    for (const auto& entry : boost::filesystem::directory_iterator(folder.GetPath())) {
        if (entry.path().filename().string().rfind(prefix + "-", 0) == 0) {
            names.push_back(entry.path());
        }
    }
    std::sort(names.begin(), names.end());
    std::vector<std::string> pictures;
    for (const auto& name : names) {
        pictures.push_back(FileBytes(name.string()));
    }
    return pictures;
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
    if (!IsInstalled("qpdf")) {
        GTEST_SKIP() << "install qpdf to run this test";
    }
    const ProcessResult check = RunProcess({"qpdf", "--check", folder.NameOf("out.pdf")});
    EXPECT_EQ(check.exitCode, 0) << check.output << check.errors;
}

TEST_P(WrittenFiles, LookTheSameToPdftoppm)
{
    if (!IsInstalled("pdftoppm")) {
        GTEST_SKIP() << "install poppler-utils to run this test";
    }
    const auto before = Render(folder, "before", NameOfExample(GetParam()));
    const auto after = Render(folder, "after", folder.NameOf("out.pdf"));
    ASSERT_FALSE(before.empty());
    // Not as texts: nobody wants to read the difference of two pictures.
    EXPECT_TRUE(before == after) << "compare the pages of " << GetParam() << " and of its rewritten form";
}

INSTANTIATE_TEST_SUITE_P(Leaflets, WrittenFiles, ::testing::Values("leaflet-v1.pdf", "leaflet-v2.pdf"));

} // namespace
} // namespace HarrowSupport::Testing
