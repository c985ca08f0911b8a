// Each system call by which a saving changes the disk fails in turn: the file that stood there stays whole,
// and nothing else is left. The functions below take the place of the C library's in this whole program, so
// that the document library calls them too.

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/saving.h"
#include "support/temporary_folder.h"

namespace
{

/// What becomes of the calls while it is set.
struct CallPlan
{
    std::vector<std::string> calls;
    /// The call of that index fails, by that number.
    std::size_t failing = static_cast<std::size_t>(-1);
    int error = 0;
    /// The most bytes that a call takes; zero for all.
    std::size_t largestWrite = 0;
};

CallPlan* plan = nullptr;

/// Whether the call may go on; otherwise errno tells why not.
bool Begin(const std::string& name)
{
    if (plan == nullptr)
        return true;
    plan->calls.push_back(name);
    if (plan->calls.size() - 1 != plan->failing)
        return true;
    errno = plan->error;
    return false;
}

std::string KindOf(int descriptor)
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode) ? " folder" : " file";
}

} // namespace

extern "C" {

__attribute__((visibility("default"))) ssize_t write(int descriptor, const void* data, size_t size)
{
    if (!Begin("write"))
        return -1;
    if (plan != nullptr && plan->largestWrite != 0)
        size = std::min(size, plan->largestWrite);
    return syscall(SYS_write, descriptor, data, size);
}

__attribute__((visibility("default"))) int fchmod(int descriptor, mode_t mode) noexcept
{
    return Begin("fchmod") ? static_cast<int>(syscall(SYS_fchmod, descriptor, mode)) : -1;
}

__attribute__((visibility("default"))) int fsync(int descriptor)
{
    return Begin("fsync" + KindOf(descriptor)) ? static_cast<int>(syscall(SYS_fsync, descriptor)) : -1;
}

__attribute__((visibility("default"))) int close(int descriptor)
{
    const bool mayGoOn = Begin("close" + KindOf(descriptor));
    const int error = errno;
    // A descriptor is closed also where the call fails.
    const auto result = static_cast<int>(syscall(SYS_close, descriptor));
    if (!mayGoOn)
        errno = error;
    return mayGoOn ? result : -1;
}

__attribute__((visibility("default"))) int rename(const char* from, const char* to) noexcept
{
    return Begin("rename") ? static_cast<int>(syscall(SYS_rename, from, to)) : -1;
}

} // extern "C"

namespace HarrowSupport::Testing
{
namespace
{

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::StartsWith;

struct PlanInForce
{
    explicit PlanInForce(CallPlan& given) { plan = &given; }
    ~PlanInForce() { plan = nullptr; }
    PlanInForce(const PlanInForce&) = delete;
    PlanInForce& operator=(const PlanInForce&) = delete;
};

constexpr std::size_t bytesOfFile = 2'000'000;
/// So that a file takes several calls.
constexpr std::size_t bytesOfCall = 300'000;

CallPlan FailAt(std::size_t index, int error)
{
    CallPlan failing;
    failing.largestWrite = bytesOfCall;
    failing.failing = index;
    failing.error = error;
    return failing;
}

class FailingCalls : public ::testing::Test
{
protected:
    /// Saves over the old file, or where none is, as a plan says.
    std::string OutcomeUnder(CallPlan& given, bool isThereAFile = true)
    {
        const TemporaryFolder folder;
        const std::string file = folder.NameOf("a.pdf");
        if (isThereAFile)
            folder.Write("a.pdf", "old");
        return OutcomeOf(
            [&] {
                const PlanInForce inForce(given);
                Save(*document, file);
            },
            file, "old", newBytes);
    }

    /// Lets each call up to the renaming fail in turn.
    void ExpectFailuresToLeave(const std::string& outcome, bool isThereAFile)
    {
        const std::size_t renaming = FindCall("rename", isThereAFile);
        ASSERT_GE(renaming, bytesOfFile / bytesOfCall);
        for (std::size_t index = 0; index <= renaming; ++index) {
            for (const int error : {ENOSPC, EIO, EDQUOT}) {
                CallPlan failing = FailAt(index, error);
                EXPECT_THAT(OutcomeUnder(failing, isThereAFile),
                            AllOf(StartsWith(outcome + "; nothing else; a.pdf: "),
                                  EndsWith(std::generic_category().message(error))))
                    << failing.calls.at(index) << ", call " << index;
            }
        }
    }

    /// The index of the first call of that name.
    std::size_t FindCall(const std::string& name, bool isThereAFile = true)
    {
        CallPlan whole;
        whole.largestWrite = bytesOfCall;
        OutcomeUnder(whole, isThereAFile);
        const auto found = std::find(whole.calls.begin(), whole.calls.end(), name);
        EXPECT_NE(found, whole.calls.end()) << name;
        return static_cast<std::size_t>(found - whole.calls.begin());
    }

    std::unique_ptr<OrvDoc::Document> document = DocumentOfBytes(bytesOfFile);
    std::string newBytes = SavedBytes(*document);
};

TEST_F(FailingCalls, BringTheDataToTheDiskBeforeTheFileTakesItsPlace)
{
    CallPlan order;
    EXPECT_EQ(OutcomeUnder(order), "new file; nothing else; no error");
    order.calls.erase(std::unique(order.calls.begin(), order.calls.end()), order.calls.end());
    EXPECT_THAT(order.calls, ElementsAre("fchmod", "write", "fsync file", "close file", "rename",
                                         "fsync folder", "close folder"));
}

TEST_F(FailingCalls, LeaveTheOldFile)
{
    ExpectFailuresToLeave("old file", true);
}

TEST_F(FailingCalls, LeaveNoFileWhereNoneWas)
{
    ExpectFailuresToLeave("no file", false);
}

TEST_F(FailingCalls, DoNotMindAFolderThatCannotBeBroughtToTheDisk)
{
    CallPlan failing = FailAt(FindCall("fsync folder"), EINVAL);
    EXPECT_EQ(OutcomeUnder(failing), "new file; nothing else; no error");
}

TEST_F(FailingCalls, AreDoneAgainWhenASignalInterruptsThem)
{
    for (const char* const name : {"write", "fsync file"}) {
        CallPlan failing = FailAt(FindCall(name), EINTR);
        EXPECT_EQ(OutcomeUnder(failing), "new file; nothing else; no error") << name;
    }
}

TEST_F(FailingCalls, WriteTheRestWhereOnlyAPartWasTaken)
{
    CallPlan parts;
    parts.largestWrite = 10'007;
    EXPECT_EQ(OutcomeUnder(parts), "new file; nothing else; no error");
    EXPECT_GT(parts.calls.size(), newBytes.size() / parts.largestWrite);
}

TEST_F(FailingCalls, LeaveTheDocumentAsItWas)
{
    CallPlan failing = FailAt(2, ENOSPC);
    EXPECT_THAT(OutcomeUnder(failing), StartsWith("old file"));
    EXPECT_TRUE(SavedBytes(*document) == newBytes);
}

} // namespace
} // namespace HarrowSupport::Testing
