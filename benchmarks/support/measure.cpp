#include "support/measure.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

#include <boost/filesystem/operations.hpp>

#include <fcntl.h>
#include <malloc.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace Benchmarks
{

void RunProgram(const std::vector<std::string>& arguments, const std::vector<int>& goodCodes)
{
    std::vector<char*> raw;
    for (const std::string& argument : arguments) {
        raw.push_back(const_cast<char*>(argument.c_str()));
    }
    raw.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    const int failure = posix_spawnp(&process, raw[0], &actions, nullptr, raw.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (failure != 0 || waitpid(process, &status, 0) != process) {
        throw std::runtime_error(arguments[0] + " can't be started");
    }
    if (!WIFEXITED(status) ||
        std::find(goodCodes.begin(), goodCodes.end(), WEXITSTATUS(status)) == goodCodes.end()) {
        throw std::runtime_error(arguments[0] + " failed");
    }
}

std::size_t ResidentBytes()
{
    malloc_trim(0);
    std::ifstream file("/proc/self/statm");
    std::size_t total = 0;
    std::size_t resident = 0;
    file >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

double PeakMebibytesOfOwnRun(std::vector<std::string> arguments, const std::string& answerFile)
{
    arguments.insert(arguments.begin(), boost::filesystem::read_symlink("/proc/self/exe").string());
    arguments.push_back(answerFile);
    RunProgram(arguments);
    std::ifstream stream(answerFile);
    std::size_t kibibytes = 0;
    if (!(stream >> kibibytes))
        throw std::runtime_error("the run did not tell its peak of memory");
    return static_cast<double>(kibibytes) / 1024.0;
}

void TellPeak(const std::string& answerFile)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        std::size_t kibibytes = 0;
        if (word == "VmHWM:" && status >> kibibytes) {
            std::ofstream(answerFile) << kibibytes;
            return;
        }
    }
    throw std::runtime_error("the system does not tell the peak of memory");
}

} // namespace Benchmarks
