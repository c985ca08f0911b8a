// Saving to disks that are too small: those that a process of its own mounts in memory, and, without any
// mount, by the largest file that a process may make.

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/resource.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <harrow_support/round_trip.h>

#include "private_disk.h"
#include "support/forked_child.h"
#include "support/saving.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::size_t plentyOfFiles = 100;

/// From nothing to one too few, so that saving fails at its beginning, at its end and between.
std::vector<std::size_t> TooSmallFor(std::size_t size)
{
    return {0, 1, size / 4, size / 2, size - size / 4, size - 2, size - 1};
}

class FullDisk : public ::testing::Test
{
protected:
    /// Does something in a process that has a disk in memory at the folder, with the old file on it.
    std::string OnDisk(std::size_t pages, std::size_t files, const std::function<std::string()>& action) const
    {
        return RunInFork([&] {
            const std::string problem = MountDisk(folder.GetPath().string(), pages, files);
            if (!problem.empty())
                return problem;
            if (!old.empty())
                folder.Write("a.pdf", old);
            return action();
        });
    }

    /// Saves with so many pages of disk for the new file.
    std::string OutcomeWithPages(std::size_t pages, std::size_t files = plentyOfFiles) const
    {
        return OnDisk(PagesOf(old.size()) + pages, files,
                      [&] { return OutcomeOf([&] { Save(*document, file); }, file, old, whole); });
    }

    std::unique_ptr<OrvDoc::Document> document = DocumentOfBytes(std::size_t{3} << 20);
    std::string whole = SavedBytes(*document);
    std::string old = std::string(10'000, 'o');
    TemporaryFolder folder;
    std::string file = folder.NameOf("a.pdf");
};

/// Whether the machine lets a test have a disk; otherwise the reason.
#define SKIP_WITHOUT_DISK(outcome)                                                                           \
    do {                                                                                                     \
        if ((outcome).rfind(notPermitted, 0) == 0)                                                           \
            GTEST_SKIP() << (outcome);                                                                       \
    } while (false)

TEST_F(FullDisk, TakesAFileThatJustFits)
{
    const std::string outcome = OutcomeWithPages(PagesOf(whole.size()));
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_EQ(outcome, "new file; nothing else; no error");
}

TEST_F(FullDisk, KeepsTheOldFileAndSaysSo)
{
    for (const std::size_t pages : TooSmallFor(PagesOf(whole.size()))) {
        const std::string outcome = OutcomeWithPages(pages);
        SKIP_WITHOUT_DISK(outcome);
        EXPECT_EQ(outcome, "old file; nothing else; a.pdf: cannot be written: No space left on device")
            << pages << " pages";
    }
}

TEST_F(FullDisk, KeepsNothingOfANewFile)
{
    old.clear();
    // A disk of no pages is one without a limit.
    for (const std::size_t pages : TooSmallFor(PagesOf(whole.size()))) {
        const std::string outcome = OutcomeWithPages(pages == 0 ? 1 : pages);
        SKIP_WITHOUT_DISK(outcome);
        EXPECT_EQ(outcome, "no file; nothing else; a.pdf: cannot be written: No space left on device")
            << pages << " pages";
    }
}

TEST_F(FullDisk, KeepsTheOldFileWhereNoMoreFilesFit)
{
    const std::string outcome = OutcomeWithPages(PagesOf(whole.size()), 2);
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_EQ(outcome, "old file; nothing else; a.pdf: cannot be written: No space left on device");
}

TEST_F(FullDisk, LeavesADocumentThatCanBeSavedElsewhere)
{
    const std::string outcome = OnDisk(PagesOf(old.size()) + 1, plentyOfFiles, [&]() -> std::string {
        try {
            Save(*document, file);
            return "it was saved";
        } catch (const std::runtime_error&) {
            return SavedBytes(*document) == whole ? "the same file" : "another file";
        }
    });
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_EQ(outcome, "the same file");
}

TEST_F(FullDisk, DoesNotHinderAFlush)
{
    const std::string outcome = OnDisk(PagesOf(old.size()), plentyOfFiles, [&] {
        return OutcomeOf([&] { document->Flush(); }, file, old, whole);
    });
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_EQ(outcome, "old file; nothing else; no error");
}

/// A round trip through a temporary folder that has no room for the file.
class RoundTripOnAFullDisk : public FullDisk
{
protected:
    std::string OutcomeOfTrip(const std::function<void(std::unique_ptr<OrvDoc::Document>&)>& trip)
    {
        return OnDisk(PagesOf(old.size()) + 3, plentyOfFiles, [&] {
            const OrvDoc::Document* const given = document.get();
            ::setenv("TMPDIR", folder.GetPath().c_str(), 1);
            const std::string outcome = OutcomeOf([&] { trip(document); }, file, old, whole);
            ::unsetenv("TMPDIR");
            if (document.get() != given)
                return outcome + "; the document is gone";
            return outcome + (SavedBytes(*document) == whole ? "; the same document" : "; another document");
        });
    }
};

TEST_F(RoundTripOnAFullDisk, GivesTheDocumentBackAsItWas)
{
    const std::string outcome = OutcomeOfTrip([](std::unique_ptr<OrvDoc::Document>& given) {
        SaveAndReopen(given, "trip", OrvDoc::WriteOptions(OrvDoc::WriteOptions::Flavour::Full),
                      OrvDoc::ReadOptions());
    });
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_THAT(outcome,
                AllOf(StartsWith("old file; nothing else; Harrow-trip-"),
                      HasSubstr(".pdf: cannot be written: No space left on device; the same document")));
}

TEST_F(RoundTripOnAFullDisk, IsNoResultOfATest)
{
    const std::string outcome = OutcomeOfTrip([](std::unique_ptr<OrvDoc::Document>& given) {
        TestRoundTripStructure(given, Comparators::Options{});
    });
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_THAT(outcome,
                AllOf(StartsWith("old file; nothing else; Harrow-RoundTripTester-"),
                      HasSubstr(".pdf: cannot be written: No space left on device; the same document")));
}

TEST_F(RoundTripOnAFullDisk, NeedsNoDiskInMemory)
{
    const std::string outcome = OutcomeOfTrip([](std::unique_ptr<OrvDoc::Document>& given) {
        const RoundTripResult result = TestRoundTripStructure(*given, Comparators::Options{});
        if (!result.differences.empty())
            throw std::runtime_error(result.differences.front().message);
    });
    SKIP_WITHOUT_DISK(outcome);
    EXPECT_EQ(outcome, "old file; nothing else; no error; the same document");
}

/// Saves in a process whose files may not have more bytes. Needs no right at all.
class LargestFile : public FullDisk
{
protected:
    std::string OutcomeWithBytes(std::size_t bytes)
    {
        folder.Write("a.pdf", old);
        return RunInFork([&] {
            // Otherwise the signal ends the process.
            std::signal(SIGXFSZ, SIG_IGN);
            const rlimit limit{static_cast<rlim_t>(bytes), static_cast<rlim_t>(bytes)};
            if (setrlimit(RLIMIT_FSIZE, &limit) != 0)
                return std::string("setrlimit fails");
            return OutcomeOf([&] { Save(*document, file); }, file, old, whole);
        });
    }
};

TEST_F(LargestFile, MayBeJustTheWholeFile)
{
    EXPECT_EQ(OutcomeWithBytes(whole.size()), "new file; nothing else; no error");
}

TEST_F(LargestFile, KeepsTheOldOneIfItIsTooSmall)
{
    for (const std::size_t bytes : TooSmallFor(whole.size())) {
        EXPECT_EQ(OutcomeWithBytes(bytes), "old file; nothing else; a.pdf: cannot be written: File too large")
            << bytes << " bytes";
    }
}

} // namespace
} // namespace HarrowSupport::Testing
