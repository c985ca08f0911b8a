#include "forked_child.h"

#include <array>
#include <cerrno>
#include <exception>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace HarrowSupport::Testing
{

namespace
{

[[noreturn]] void Answer(int descriptor, const std::function<std::string()>& function)
{
    std::string text;
    try {
        text = function();
    } catch (const std::exception& problem) {
        text = std::string("exception: ") + problem.what();
    }
    std::size_t sent = 0;
    while (sent < text.size()) {
        const ssize_t count = write(descriptor, text.data() + sent, text.size() - sent);
        if (count < 0 && errno != EINTR)
            break;
        sent += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    // What the parent's objects would do at the end is the parent's.
    _exit(0);
}

std::string ReadToEnd(int descriptor)
{
    std::string text;
    std::array<char, 4096> buffer;
    ssize_t count = 0;
    while ((count = read(descriptor, buffer.data(), buffer.size())) > 0 || (count < 0 && errno == EINTR))
        text.append(buffer.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
    return text;
}

} // namespace

std::string RunInFork(const std::function<std::string()>& function)
{
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    const pid_t child = fork();
    if (child < 0)
        throw std::system_error(errno, std::generic_category(), "fork");
    if (child == 0)
        Answer(ends[1], function);
    close(ends[1]);
    std::string text = ReadToEnd(ends[0]);
    close(ends[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
    }
    return WIFSIGNALED(status) ? "ended by signal " + std::to_string(WTERMSIG(status)) : text;
}

} // namespace HarrowSupport::Testing
