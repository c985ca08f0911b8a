// The child's output is read through two pipes until both end or the time is up; only then is the child's end
// waited for. Between fork and exec the child calls nothing that could need a lock which another thread held.

#include "child_process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace HarrowSupport::Testing
{

namespace
{

using Clock = std::chrono::steady_clock;

constexpr int couldNotStart = 127;

[[noreturn]] void ThrowSystemError(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

/// A pipe that other children do not inherit; closed at the end.
class Pipe
{
public:
    Pipe()
    {
        if (pipe2(ends.data(), O_CLOEXEC) != 0)
            ThrowSystemError("pipe");
    }
    ~Pipe()
    {
        CloseEnd(0);
        CloseEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    int GetReadEnd() const { return ends[0]; }
    int GetWriteEnd() const { return ends[1]; }
    void CloseWriteEnd() { CloseEnd(1); }

private:
    void CloseEnd(std::size_t end)
    {
        if (ends[end] >= 0)
            close(ends[end]);
        ends[end] = -1;
    }

    std::array<int, 2> ends{};
};

/// A file in memory that other children do not inherit, to be read from its beginning.
class MemoryFile
{
public:
    explicit MemoryFile(const std::string& bytes) : descriptor(memfd_create("input", MFD_CLOEXEC))
    {
        if (descriptor < 0)
            ThrowSystemError("memfd_create");
        // Memory takes all bytes at once.
        if (pwrite(descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
            close(descriptor);
            ThrowSystemError("pwrite");
        }
    }
    ~MemoryFile() { close(descriptor); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    int GetDescriptor() const { return descriptor; }

private:
    int descriptor;
};

/// Strings in the form that exec takes. They must outlive the result.
std::vector<char*> PointersTo(const std::vector<std::string>& strings)
{
    std::vector<char*> pointers;
    for (const std::string& text : strings)
        pointers.push_back(const_cast<char*>(text.c_str()));
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> EnvironmentWith(const std::vector<std::string>& changes)
{
    std::vector<std::string> result = changes;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        const std::string text = *entry;
        const std::string start = text.substr(0, text.find('=') + 1);
        bool isReplaced = false;
        for (const std::string& change : changes)
            isReplaced = isReplaced || change.compare(0, start.size(), start) == 0;
        if (!isReplaced)
            result.push_back(text);
    }
    return result;
}

[[noreturn]] void BecomeProgram(char* const* command, char* const* environment, int input, int output,
                                int errors, std::uint64_t addressSpace)
{
    bool ready = dup2(input, STDIN_FILENO) >= 0 && dup2(output, STDOUT_FILENO) >= 0 &&
                 dup2(errors, STDERR_FILENO) >= 0;
    if (addressSpace != 0) {
        const rlimit limit{static_cast<rlim_t>(addressSpace), static_cast<rlim_t>(addressSpace)};
        ready = ready && setrlimit(RLIMIT_AS, &limit) == 0;
    }
    if (ready)
        execvpe(command[0], command, environment);
    constexpr char message[] = "the program can't be started\n";
    if (write(STDERR_FILENO, message, sizeof message - 1) < 0)
        _exit(couldNotStart);
    _exit(couldNotStart);
}

int MillisecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now());
    return left.count() > 0 ? static_cast<int>(left.count()) : 0;
}

/// Reads what is there. Returns false at the end of the data.
bool ReadSome(int descriptor, std::string& text)
{
    std::array<char, 65536> buffer;
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return count > 0 || (count < 0 && errno == EINTR);
}

/// Reads both pipes to their ends, or until the time is up.
void ReadAll(const Pipe& output, const Pipe& errors, Clock::time_point deadline, ProcessResult& result)
{
    std::array<pollfd, 2> watched{{{output.GetReadEnd(), POLLIN, 0}, {errors.GetReadEnd(), POLLIN, 0}}};
    const std::array<std::string*, 2> texts{&result.output, &result.errors};
    while (watched[0].fd >= 0 || watched[1].fd >= 0) {
        const int count = poll(watched.data(), watched.size(), MillisecondsUntil(deadline));
        if (count == 0)
            return;
        if (count < 0 && errno != EINTR)
            ThrowSystemError("poll");
        for (std::size_t i = 0; count > 0 && i < watched.size(); ++i) {
            // A negative descriptor is left out of the next round.
            if (watched[i].revents != 0 && !ReadSome(watched[i].fd, *texts[i]))
                watched[i].fd = -1;
        }
    }
}

void WaitForEnd(pid_t child, Clock::time_point deadline, ProcessResult& result)
{
    int status = 0;
    rusage usage{};
    pid_t ended = 0;
    while ((ended = wait4(child, &status, WNOHANG, &usage)) == 0 && Clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    if (ended == 0) {
        result.timedOut = true;
        kill(child, SIGKILL);
        ended = wait4(child, &status, 0, &usage);
    }
    if (ended < 0)
        ThrowSystemError("wait4");
    if (WIFEXITED(status))
        result.exitCode = WEXITSTATUS(status);
    if (WIFSIGNALED(status))
        result.signal = WTERMSIG(status);
    result.peakMebibytes = static_cast<double>(usage.ru_maxrss) / 1024.0;
}

} // namespace

ProcessResult RunProcess(const std::vector<std::string>& command, const ProcessLimits& limits,
                         const std::vector<std::string>& environment, const std::string& input)
{
    if (command.empty())
        throw std::invalid_argument("RunProcess: there is no command");
    const MemoryFile inputFile(input);
    Pipe output;
    Pipe errors;
    const std::vector<std::string> variables = EnvironmentWith(environment);
    const std::vector<char*> commandPointers = PointersTo(command);
    const std::vector<char*> variablePointers = PointersTo(variables);

    const Clock::time_point start = Clock::now();
    const pid_t child = fork();
    if (child < 0)
        ThrowSystemError("fork");
    if (child == 0) {
        BecomeProgram(commandPointers.data(), variablePointers.data(), inputFile.GetDescriptor(),
                      output.GetWriteEnd(), errors.GetWriteEnd(), limits.addressSpace);
    }
    output.CloseWriteEnd();
    errors.CloseWriteEnd();

    ProcessResult result;
    const Clock::time_point deadline = start + limits.time;
    ReadAll(output, errors, deadline, result);
    WaitForEnd(child, deadline, result);
    result.seconds = std::chrono::duration<double>(Clock::now() - start).count();
    return result;
}

} // namespace HarrowSupport::Testing
