#pragma once

#include <cstddef>

#include <boost/filesystem/path.hpp>

namespace OrvPdf
{

/// A file that takes its place only when it is whole: written aside in the same folder, brought to the disk,
/// and renamed over whatever stands there. Where a symbolic link stands, its target is replaced. A file that
/// the user may not write is not replaced. All failures are `std::runtime_error`, "FILE: reason".
///
/// At each moment, also when the process is killed or the power is lost, the old file or the new one is
/// whole. Only a process that is killed leaves the file aside, hidden under `.NAME.` and six letters.
class AtomicFile
{
public:
    /// Makes the file aside. An existing file's permission bits go to the new one.
    explicit AtomicFile(const boost::filesystem::path& target);
    /// Removes the file aside unless it was committed.
    ~AtomicFile();
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;

    void Write(const void* data, std::size_t size);

    /// Puts the file in its place. Nothing may be written afterwards.
    void Commit();

private:
    void Create();
    [[noreturn]] void Fail(const char* action, int errorNumber) const;

    boost::filesystem::path name; // As the caller said it, for messages.
    boost::filesystem::path target;
    boost::filesystem::path aside;
    int descriptor = -1;
};

} // namespace OrvPdf
