#include "support/measure.h"

#include <algorithm>
#include <fstream>
#include <stdexcept>

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

} // namespace Benchmarks
