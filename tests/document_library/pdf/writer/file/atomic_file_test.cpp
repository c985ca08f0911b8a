#include "pdf/writer/file/atomic_file.h"

#include <stdexcept>

#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/file_bytes.h"
#include "support/temporary_folder.h"

namespace OrvPdf
{
namespace
{

using HarrowSupport::Testing::FileBytes;
using HarrowSupport::Testing::TemporaryFolder;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

void Write(const std::string& file, const std::string& bytes)
{
    AtomicFile atomic(file);
    atomic.Write(bytes.data(), bytes.size());
    atomic.Commit();
}

std::string FailureOf(const std::string& file)
{
    try {
        Write(file, "new");
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "no failure";
}

std::size_t CountFiles(const TemporaryFolder& folder)
{
    return static_cast<std::size_t>(std::distance(boost::filesystem::directory_iterator(folder.GetPath()),
                                                  boost::filesystem::directory_iterator()));
}

mode_t ModeOf(const std::string& file)
{
    struct stat status = {};
    return ::stat(file.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

TEST(AtomicFile, WritesANewFile)
{
    const TemporaryFolder folder;
    Write(folder.NameOf("a.pdf"), "new");
    EXPECT_EQ(FileBytes(folder.NameOf("a.pdf")), "new");
    EXPECT_EQ(CountFiles(folder), 1u);
}

TEST(AtomicFile, LeavesTheOldFileUntilTheNewOneIsWhole)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.pdf", "old");
    {
        AtomicFile atomic(file);
        atomic.Write("new", 3);
        EXPECT_EQ(FileBytes(file), "old");
    }
    EXPECT_EQ(FileBytes(file), "old");
    EXPECT_EQ(CountFiles(folder), 1u);
}

TEST(AtomicFile, GivesANewFileTheModeThatTheProcessAsksFor)
{
    const TemporaryFolder folder;
    const mode_t before = ::umask(027);
    Write(folder.NameOf("a.pdf"), "new");
    ::umask(before);
    EXPECT_EQ(ModeOf(folder.NameOf("a.pdf")), 0640u);
}

TEST(AtomicFile, KeepsTheModeOfAnOldFile)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.pdf", "old");
    ASSERT_EQ(::chmod(file.c_str(), 0604), 0);
    Write(file, "new");
    EXPECT_EQ(ModeOf(file), 0604u);
}

TEST(AtomicFile, WritesThroughASymbolicLink)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("target.pdf", "old");
    boost::filesystem::create_symlink("target.pdf", folder.NameOf("link.pdf"));
    Write(folder.NameOf("link.pdf"), "new");
    EXPECT_EQ(FileBytes(file), "new");
    EXPECT_TRUE(boost::filesystem::is_symlink(folder.NameOf("link.pdf")));
}

TEST(AtomicFile, TakesTheLongestNameThatAFolderTakes)
{
    const TemporaryFolder folder;
    const std::string file = folder.NameOf(std::string(251, 'n') + ".pdf");
    Write(file, "new");
    EXPECT_EQ(FileBytes(file), "new");
}

TEST(AtomicFile, FailsInAFolderThatIsNotThere)
{
    const TemporaryFolder folder;
    const std::string file = folder.NameOf("missing/a.pdf");
    EXPECT_THAT(FailureOf(file), AllOf(StartsWith(file + ": "), HasSubstr("No such file or directory")));
}

TEST(AtomicFile, FailsOnAFolder)
{
    const TemporaryFolder folder;
    const std::string name = folder.GetPath().string();
    EXPECT_THAT(FailureOf(name), AllOf(StartsWith(name + ": "), HasSubstr("Is a directory")));
}

TEST(AtomicFile, FailsOnWhatIsNoRegularFile)
{
    EXPECT_THAT(FailureOf("/dev/null"), HasSubstr("not a regular file"));
}

TEST(AtomicFile, FailsOnANameThatIsTooLong)
{
    const TemporaryFolder folder;
    EXPECT_THAT(FailureOf(folder.NameOf(std::string(300, 'n'))), HasSubstr("File name too long"));
    EXPECT_EQ(CountFiles(folder), 0u);
}

TEST(AtomicFile, FailsOnLinksThatLeadInACircle)
{
    const TemporaryFolder folder;
    boost::filesystem::create_symlink("link.pdf", folder.NameOf("link.pdf"));
    EXPECT_THAT(FailureOf(folder.NameOf("link.pdf")), HasSubstr("Too many levels of symbolic links"));
    EXPECT_TRUE(boost::filesystem::is_symlink(folder.NameOf("link.pdf")));
    EXPECT_EQ(CountFiles(folder), 1u);
}

TEST(AtomicFile, FailsInAFolderThatMayNotBeWritten)
{
    const TemporaryFolder folder;
    const std::string file = folder.Write("a.pdf", "old");
    ASSERT_EQ(::chmod(folder.GetPath().c_str(), 0555), 0);
    // Root may write everywhere, so root becomes nobody for this.
    const bool isRoot = ::geteuid() == 0;
    ASSERT_TRUE(!isRoot || ::seteuid(65534) == 0);
    const std::string failure = FailureOf(file);
    ASSERT_TRUE(!isRoot || ::seteuid(0) == 0);
    EXPECT_THAT(failure, HasSubstr("Permission denied"));
    ::chmod(folder.GetPath().c_str(), 0755);
    EXPECT_EQ(FileBytes(file), "old");
}

} // namespace
} // namespace OrvPdf
