#pragma once

#include <cerrno>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <string>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/// Small disks in memory, for tests that fill them.
namespace HarrowSupport::Testing
{

/// The beginning of what is returned where this machine does not let a process have disks of its own.
inline const std::string notPermitted = "not permitted: ";

inline std::string NotPermitted(const char* call)
{
    return notPermitted + call + ": " + std::strerror(errno);
}

/// Gives this process mounts that no other sees; one that may not is made root of a user namespace first.
/// Returns an empty text, or why this is not permitted.
inline std::string MakeMountsPrivate()
{
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (unshare(CLONE_NEWNS) != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return NotPermitted("unshare");
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    }
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 ? std::string()
                                                                           : NotPermitted("mount");
}

/// Puts an empty disk on a folder, for this process alone. Disks count whole pages; the root folder is one
/// of the files and takes no page. Returns an empty text, or why this is not permitted.
inline std::string MountDisk(const std::string& folder, std::size_t pages, std::size_t files)
{
    const std::string problem = MakeMountsPrivate();
    if (!problem.empty())
        return problem;
    const std::string options = "nr_blocks=" + std::to_string(pages) + ",nr_inodes=" + std::to_string(files);
    return mount("tmpfs", folder.c_str(), "tmpfs", 0, options.c_str()) == 0 ? std::string()
                                                                            : NotPermitted("mount");
}

inline std::size_t PagesOf(std::size_t bytes)
{
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    return (bytes + page - 1) / page;
}

} // namespace HarrowSupport::Testing
