// Places where a file may not be written. Root may write everywhere, so a process of its own gives its rights
// up before it saves.

#include <cstdlib>
#include <functional>
#include <memory>
#include <string>

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <harrow_support/round_trip.h>

#include "support/document_makers.h"
#include "support/file_bytes.h"
#include "support/forked_child.h"
#include "support/saving.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::EndsWith;
using ::testing::StartsWith;

constexpr unsigned nobody = 65534;

bool GiveUpRights()
{
    return ::geteuid() != 0 ||
           (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0);
}

class RefusedTargets : public ::testing::Test
{
protected:
    RefusedTargets() { ::chmod(folder.GetPath().c_str(), 0777); }
    ~RefusedTargets() override { ::chmod(folder.GetPath().c_str(), 0777); }

    /// What a user without rights gets who saves to that name.
    std::string OutcomeFor(const std::string& name)
    {
        return RunInFork([&] {
            if (!GiveUpRights())
                return std::string("the rights cannot be given up");
            return OutcomeOf([&] { Save(*document, folder.NameOf(name)); }, folder.NameOf(name), "old",
                             newBytes);
        });
    }

    std::string WriteOld() { return folder.Write("a.pdf", "old"); }

    TemporaryFolder folder;
    std::unique_ptr<OrvDoc::Document> document = NewDocument(1);
    std::string newBytes = SavedBytes(*document);
};

TEST_F(RefusedTargets, AreNotThoseOfAUserWhoMayWriteThem)
{
    ASSERT_EQ(::chmod(WriteOld().c_str(), 0666), 0);
    EXPECT_EQ(OutcomeFor("a.pdf"), "new file; nothing else; no error");
}

TEST_F(RefusedTargets, KeepTheFileOfAFolderThatMayNotBeWritten)
{
    ASSERT_EQ(::chmod(WriteOld().c_str(), 0666), 0);
    ASSERT_EQ(::chmod(folder.GetPath().c_str(), 0555), 0);
    EXPECT_EQ(OutcomeFor("a.pdf"), "old file; nothing else; a.pdf: cannot be written: Permission denied");
}

TEST_F(RefusedTargets, GetNoFileInAFolderThatMayNotBeWritten)
{
    ASSERT_EQ(::chmod(folder.GetPath().c_str(), 0555), 0);
    EXPECT_EQ(OutcomeFor("a.pdf"), "no file; nothing else; a.pdf: cannot be written: Permission denied");
}

TEST_F(RefusedTargets, KeepAFileThatMayOnlyBeRead)
{
    ASSERT_EQ(::chmod(WriteOld().c_str(), 0444), 0);
    EXPECT_EQ(OutcomeFor("a.pdf"), "old file; nothing else; a.pdf: cannot be written: Permission denied");
}

TEST_F(RefusedTargets, KeepAFileThatALinkLeadsToAndThatMayOnlyBeRead)
{
    ASSERT_EQ(::chmod(WriteOld().c_str(), 0444), 0);
    boost::filesystem::create_symlink("a.pdf", folder.NameOf("link.pdf"));
    EXPECT_EQ(OutcomeFor("link.pdf"), "old file; a.pdf; link.pdf: cannot be written: Permission denied");
}

TEST_F(RefusedTargets, KeepAFolder)
{
    boost::filesystem::create_directory(folder.NameOf("a.pdf"));
    EXPECT_EQ(OutcomeFor("a.pdf"), "other file; nothing else; a.pdf: cannot be written: Is a directory");
    EXPECT_TRUE(boost::filesystem::is_directory(folder.NameOf("a.pdf")));
}

TEST_F(RefusedTargets, AreThoseInAFolderThatIsNotThere)
{
    const std::string file = folder.NameOf("missing/a.pdf");
    EXPECT_THAT(RunInFork([&] {
                    Save(*document, file);
                    return std::string("saved");
                }),
                "exception: " + file + ": cannot be written: No such file or directory");
    EXPECT_TRUE(NamesIn(folder.GetPath().string()).empty());
}

TEST_F(RefusedTargets, AreThoseInAFileInPlaceOfAFolder)
{
    const std::string file = WriteOld() + "/b.pdf";
    EXPECT_THAT(RunInFork([&] {
                    Save(*document, file);
                    return std::string("saved");
                }),
                "exception: " + file + ": cannot be written: Not a directory");
    EXPECT_EQ(FileBytes(folder.NameOf("a.pdf")), "old");
}

TEST_F(RefusedTargets, AreNamesThatAreTooLong)
{
    const std::string name(300, 'n');
    EXPECT_EQ(OutcomeFor(name), "no file; nothing else; " + name + ": cannot be written: File name too long");
}

TEST_F(RefusedTargets, KeepLinksThatLeadInACircle)
{
    boost::filesystem::create_symlink("b.pdf", folder.NameOf("a.pdf"));
    boost::filesystem::create_symlink("a.pdf", folder.NameOf("b.pdf"));
    EXPECT_EQ(OutcomeFor("a.pdf"),
              "other file; b.pdf; a.pdf: cannot be written: Too many levels of symbolic links");
    EXPECT_TRUE(boost::filesystem::is_symlink(folder.NameOf("a.pdf")));
}

TEST_F(RefusedTargets, AreNotLinksToAFile)
{
    ASSERT_EQ(::chmod(WriteOld().c_str(), 0666), 0);
    boost::filesystem::create_symlink("a.pdf", folder.NameOf("link.pdf"));
    EXPECT_EQ(OutcomeFor("link.pdf"), "new file; a.pdf; no error");
    EXPECT_TRUE(boost::filesystem::is_symlink(folder.NameOf("link.pdf")));
    EXPECT_TRUE(FileBytes(folder.NameOf("a.pdf")) == newBytes);
}

TEST_F(RefusedTargets, AreNotLinksToAFileThatIsStillToCome)
{
    boost::filesystem::create_symlink("a.pdf", folder.NameOf("link.pdf"));
    EXPECT_EQ(OutcomeFor("link.pdf"), "new file; a.pdf; no error");
}

TEST_F(RefusedTargets, StopARoundTripWithItsDocument)
{
    const auto tripAsNobody = [&](const std::function<void()>& trip) {
        return RunInFork([&] {
            ::setenv("TMPDIR", folder.GetPath().c_str(), 1);
            if (!GiveUpRights())
                return std::string("the rights cannot be given up");
            return OutcomeOf(trip, folder.NameOf("a.pdf"), "old", newBytes) +
                   (document ? "; the document" : "; no document");
        });
    };
    ASSERT_EQ(::chmod(folder.GetPath().c_str(), 0555), 0);
    EXPECT_THAT(tripAsNobody([&] {
                    SaveAndReopen(document, "trip", OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full),
                                  OrvDoc::ReadOptions());
                }),
                AllOf(StartsWith("no file; nothing else; Harrow-trip-"),
                      EndsWith(".pdf: cannot be written: Permission denied; the document")));
    EXPECT_THAT(tripAsNobody([&] { TestRoundTripStructure(document, Comparators::Options{}); }),
                AllOf(StartsWith("no file; nothing else; Harrow-RoundTripTester-"),
                      EndsWith(".pdf: cannot be written: Permission denied; the document")));
}

} // namespace
} // namespace HarrowSupport::Testing
