// A process is killed at random moments of a saving. What stands there afterwards is the old file or the new
// one, byte for byte, and programs can read it.

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/child_process.h"
#include "support/document_makers.h"
#include "support/file_bytes.h"
#include "support/random_documents.h"
#include "support/saving.h"
#include "support/temporary_folder.h"

namespace HarrowSupport::Testing
{
namespace
{

using Clock = std::chrono::steady_clock;
using Seconds = std::chrono::duration<double>;
using ::testing::MatchesRegex;

/// What a saving process tells its parent, in this order.
enum Mark : char
{
    Ready = 'r',
    Begun = 'b',
    Ended = 'e',
};

/// A copy of this process that saves a document and then waits for its end. Between two marks it waits as
/// long as `lead`, so that some are killed before they begin.
class SavingProcess
{
public:
    SavingProcess(OrvDoc::Document& document, const std::string& file, Seconds lead)
    {
        if (pipe(ends.data()) != 0)
            throw std::system_error(errno, std::generic_category(), "pipe");
        child = fork();
        if (child < 0)
            throw std::system_error(errno, std::generic_category(), "fork");
        if (child == 0)
            Run(document, file, lead);
        close(ends[1]);
    }

    ~SavingProcess()
    {
        Kill();
        close(ends[0]);
    }
    SavingProcess(const SavingProcess&) = delete;
    SavingProcess& operator=(const SavingProcess&) = delete;

    /// Waits for a mark; false if the process ends without it.
    bool WaitFor(Mark mark)
    {
        char read = 0;
        while (marks.find(mark) == std::string::npos) {
            const ssize_t count = ::read(ends[0], &read, 1);
            if (count == 0)
                return false;
            if (count > 0)
                marks += read;
        }
        return true;
    }

    /// Whether it has said so by now.
    bool HasEnded()
    {
        pollfd watched{ends[0], POLLIN, 0};
        while (!HasGiven(Ended) && ::poll(&watched, 1, 0) > 0) {
            char read = 0;
            if (::read(ends[0], &read, 1) <= 0)
                return true;
            marks += read;
        }
        return HasGiven(Ended);
    }

    /// Kills the process; the marks are then all that it gave.
    void Kill()
    {
        if (child <= 0)
            return;
        kill(child, SIGKILL);
        while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
        child = 0;
        WaitFor(Mark{});
    }

    bool HasGiven(Mark mark) const { return marks.find(mark) != std::string::npos; }

private:
    [[noreturn]] void Run(OrvDoc::Document& document, const std::string& file, Seconds lead)
    {
        try {
            Give(Ready);
            std::this_thread::sleep_for(lead);
            Give(Begun);
            Save(document, file);
            Give(Ended);
            for (;;)
                pause();
        } catch (...) {
            _exit(1);
        }
    }

    void Give(Mark mark)
    {
        if (write(ends[1], &mark, 1) != 1)
            _exit(1);
    }

    std::array<int, 2> ends{};
    pid_t child = 0;
    std::string marks;
};

/// Where the killed processes were.
struct Hits
{
    int before = 0;
    /// The document was put together, nothing of it was in a file.
    int assembling = 0;
    /// A part of the new file, or all of it, was in the file aside.
    int writing = 0;
    /// The new file was in its place, and the process did not know yet.
    int inPlace = 0;
    int after = 0;

    int GetWithin() const { return assembling + writing + inPlace; }
};

constexpr int notInstalled = 127;
constexpr int killings = 70;
constexpr std::size_t bytesOfFile = std::size_t{2} << 20;

class KilledSaving : public ::testing::Test
{
protected:
    /// Saves the document to the file again and again, killed each time at another moment.
    void KillAndLook(OrvDoc::Document& document, const std::string& file)
    {
        newBytes = SavedBytes(document);
        ASSERT_TRUE(newBytes != oldBytes);
        const Duration duration = Measure(document, file);
        const Seconds lead = duration.whole / 8;
        for (int index = 0; index < killings && !HasFailure(); ++index) {
            PutOldFile(file);
            SavingProcess process(document, file, lead);
            ASSERT_TRUE(process.WaitFor(Ready));
            // One moment in each of so many parts of the time: every second one of that of the writing, which
            // is short, and the others of all of it.
            const double part = (index + std::uniform_real_distribution<>(0.0, 1.0)(random)) / killings;
            if (index % 2 == 0) {
                std::this_thread::sleep_for((lead + 1.25 * duration.whole) * part);
            } else {
                WaitForWriting(process);
                std::this_thread::sleep_for(1.1 * duration.writing * part);
            }
            process.Kill();
            SCOPED_TRACE("killing " + std::to_string(index));
            Look(process, file);
        }
        std::cout << "seed " << seed << ", a saving takes " << duration.whole.count()
                  << " s; killed before it: " << hits.before
                  << ", while it put the document together: " << hits.assembling
                  << ", while it wrote: " << hits.writing << ", with the file in place: " << hits.inPlace
                  << ", after it: " << hits.after << "\n";
        // Most should hit it; a busy machine makes the measured times wrong ones.
        EXPECT_GE(hits.GetWithin(), killings / 4);
        EXPECT_GE(hits.writing, killings / 20);
    }

    std::string oldBytes;
    TemporaryFolder folder;

private:
    void PutOldFile(const std::string& file)
    {
        boost::filesystem::remove(file);
        if (!oldBytes.empty())
            folder.Write(boost::filesystem::path(file).filename().string(), oldBytes);
    }

    /// How long a saving takes, and the part of it in which the file aside is there and not empty.
    struct Duration
    {
        Seconds whole;
        Seconds writing;

        bool operator<(const Duration& other) const { return whole < other.whole; }
    };

    /// Waits until a part of the new file is in the file aside, or the saving has ended.
    void WaitForWriting(SavingProcess& process) const
    {
        boost::system::error_code ignored;
        while (!process.HasEnded()) {
            for (const std::string& name : NamesIn(folder.GetPath().string())) {
                const auto size = boost::filesystem::file_size(folder.NameOf(name), ignored);
                if (name.front() == '.' && !ignored && size > 0)
                    return;
            }
        }
    }

    Duration Measure(OrvDoc::Document& document, const std::string& file)
    {
        std::vector<Duration> times;
        for (int count = 0; count < 5; ++count) {
            PutOldFile(file);
            SavingProcess process(document, file, Seconds(0));
            EXPECT_TRUE(process.WaitFor(Begun));
            const Clock::time_point start = Clock::now();
            WaitForWriting(process);
            const Clock::time_point writing = Clock::now();
            EXPECT_TRUE(process.WaitFor(Ended));
            const Clock::time_point end = Clock::now();
            times.push_back({end - start, end - writing});
        }
        std::sort(times.begin(), times.end());
        return times[times.size() / 2];
    }

    void Look(const SavingProcess& process, const std::string& file)
    {
        const std::string bytes = FileBytes(file);
        const bool isNew = bytes == newBytes;
        ASSERT_TRUE(isNew || bytes == oldBytes) << bytes.size() << " bytes";
        const std::size_t bytesAside = TakeFileAside(file);
        if (process.HasGiven(Ended)) {
            EXPECT_TRUE(isNew);
            EXPECT_EQ(bytesAside, 0u);
            ++hits.after;
        } else if (!process.HasGiven(Begun)) {
            EXPECT_FALSE(isNew);
            ++hits.before;
        } else {
            ++(isNew ? hits.inPlace : bytesAside > 0 ? hits.writing : hits.assembling);
        }
        if (!bytes.empty())
            ExpectReadable(file);
    }

    /// Removes what the killed process could not, and returns how large it was.
    std::size_t TakeFileAside(const std::string& file)
    {
        std::vector<std::string> names = NamesIn(folder.GetPath().string());
        names.erase(
            std::remove(names.begin(), names.end(), boost::filesystem::path(file).filename().string()),
            names.end());
        EXPECT_LE(names.size(), 1u);
        std::size_t bytes = 0;
        for (const std::string& name : names) {
            EXPECT_THAT(name, MatchesRegex("\\.[a-z]+\\.pdf\\.[a-z0-9]{6}"));
            bytes = static_cast<std::size_t>(boost::filesystem::file_size(folder.NameOf(name)));
            boost::filesystem::remove(folder.NameOf(name));
        }
        return bytes;
    }

    void ExpectReadable(const std::string& file)
    {
        const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
        EXPECT_EQ(document->GetNumberOfPages(), 1u);
        EXPECT_NE(ContentOf(*document).GetChildren().first, nullptr);
        const ProcessResult check = RunProcess({"qpdf", "--check", file});
        EXPECT_TRUE(check.exitCode == 0 || check.exitCode == notInstalled) << check.output << check.errors;
    }

    std::uint32_t seed = FirstSeed();
    std::mt19937 random{seed};
    std::string newBytes;
    Hits hits;
};

TEST_F(KilledSaving, LeavesTheOldFileOrTheNewOne)
{
    const auto old = NewDocument(1);
    Place(ContentOf(*old), Square());
    oldBytes = SavedBytes(*old);
    const auto document = DocumentOfBytes(bytesOfFile);
    KillAndLook(*document, folder.NameOf("target.pdf"));
}

TEST_F(KilledSaving, LeavesNoFileOrTheNewOne)
{
    const auto document = DocumentOfBytes(bytesOfFile);
    KillAndLook(*document, folder.NameOf("target.pdf"));
}

TEST_F(KilledSaving, LeavesTheFileThatWasOpenedOrTheNewOne)
{
    oldBytes = SavedBytes(*DocumentOfBytes(bytesOfFile));
    const std::string file = folder.Write("opened.pdf", oldBytes);
    const auto document = OrvDoc::Document::Create(file, OrvDoc::ReadOptions());
    Place(ContentOf(*document), Square("added"));
    KillAndLook(*document, file);
}

} // namespace
} // namespace HarrowSupport::Testing
