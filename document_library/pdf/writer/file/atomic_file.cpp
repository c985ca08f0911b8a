#include "pdf/writer/file/atomic_file.h"

#include <cerrno>
#include <random>
#include <stdexcept>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>

namespace OrvPdf
{

namespace
{

// As many links as the kernel follows in a path.
constexpr int maximumLinks = 40;
// Names are random: only a fault can use that many up.
constexpr int maximumNames = 100;

boost::filesystem::path FollowLinks(boost::filesystem::path path)
{
    boost::system::error_code error;
    for (int count = 0; count < maximumLinks && is_symlink(symlink_status(path, error)); ++count) {
        const boost::filesystem::path link = read_symlink(path, error);
        path = link.is_absolute() ? link : path.parent_path() / link;
    }
    return path;
}

std::string RandomSuffix()
{
    constexpr char letters[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    std::random_device random;
    std::uniform_int_distribution<std::size_t> choice(0, sizeof letters - 2);
    std::string suffix(6, '\0');
    for (char& letter : suffix) {
        letter = letters[choice(random)];
    }
    return suffix;
}

/// A hidden name beside the target's; cut where the folder would not take its length.
boost::filesystem::path NameAside(const boost::filesystem::path& target)
{
    const std::string suffix = '.' + RandomSuffix();
    std::string name = '.' + target.filename().string();
    if (name.size() + suffix.size() > NAME_MAX) {
        name.resize(NAME_MAX - suffix.size());
    }
    return target.parent_path() / (name + suffix);
}

/// The renaming is on the disk only when its folder is. A file system that can't do that is no failure.
void SynchronizeFolder(const boost::filesystem::path& file)
{
    const boost::filesystem::path folder = file.parent_path();
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        (void)::fsync(descriptor);
        ::close(descriptor);
    }
}

} // namespace

AtomicFile::AtomicFile(const boost::filesystem::path& givenTarget)
    : name(givenTarget), target(FollowLinks(givenTarget))
{
    struct stat existing = {};
    const bool exists = ::stat(target.c_str(), &existing) == 0;
    if (!exists && errno != ENOENT) {
        // Renaming would fail too, or would replace links that lead in a circle.
        Fail("cannot be written", errno);
    }
    if (exists && S_ISDIR(existing.st_mode)) {
        Fail("cannot be written", EISDIR);
    }
    if (exists && !S_ISREG(existing.st_mode)) {
        throw std::runtime_error(name.string() + ": cannot be written: it is not a regular file");
    }
    if (exists && ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0) {
        // Renaming asks for the right to change the folder alone.
        Fail("cannot be written", errno);
    }
    Create();
    if (exists && ::fchmod(descriptor, existing.st_mode & 07777) != 0) {
        const int error = errno;
        ::close(descriptor);
        ::unlink(aside.c_str());
        Fail("its permissions cannot be kept", error);
    }
}

void AtomicFile::Create()
{
    for (int count = 0; count < maximumNames; ++count) {
        aside = NameAside(target);
        descriptor = ::open(aside.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (descriptor >= 0) {
            return;
        }
        if (errno != EEXIST) {
            break;
        }
    }
    Fail("cannot be written", errno);
}

AtomicFile::~AtomicFile()
{
    if (descriptor >= 0) {
        ::close(descriptor);
    }
    if (!aside.empty()) {
        ::unlink(aside.c_str());
    }
}

void AtomicFile::Write(const void* data, std::size_t size)
{
    const char* at = static_cast<const char*>(data);
    while (size > 0) {
        const ssize_t written = ::write(descriptor, at, size);
        if (written < 0 && errno != EINTR) {
            Fail("cannot be written", errno);
        }
        at += written < 0 ? 0 : written;
        size -= written < 0 ? 0 : static_cast<std::size_t>(written);
    }
}

void AtomicFile::Commit()
{
    // The data first: after a loss of power a name that is on the disk must not lead to data that are not.
    while (::fsync(descriptor) != 0) {
        // Some devices that can't synchronize say EINVAL.
        if (errno == EINVAL) {
            break;
        }
        if (errno != EINTR) {
            Fail("cannot be brought to the disk", errno);
        }
    }
    const int closing = ::close(descriptor);
    descriptor = -1;
    if (closing != 0) {
        Fail("cannot be closed", errno);
    }
    if (::rename(aside.c_str(), target.c_str()) != 0) {
        Fail("cannot be put in its place", errno);
    }
    aside.clear();
    SynchronizeFolder(target);
}

void AtomicFile::Fail(const char* action, int errorNumber) const
{
    throw std::runtime_error(name.string() + ": " + action + ": " +
                             std::generic_category().message(errorNumber));
}

} // namespace OrvPdf
