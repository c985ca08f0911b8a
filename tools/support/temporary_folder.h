#pragma once

#include <boost/filesystem/path.hpp>

#include <string>

namespace HarrowSupport::Testing
{

/// A fresh folder for the files of a test, taken away at the end with all that is in it.
class TemporaryFolder
{
public:
    /// @throws boost::filesystem::filesystem_error
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const boost::filesystem::path& GetPath() const { return path; }

    /// The full name of a file of the folder.
    std::string NameOf(const std::string& file) const { return (path / file).string(); }

    /// Writes a file and returns its full name.
    /// @throws std::runtime_error
    std::string Write(const std::string& file, const std::string& bytes) const;

private:
    boost::filesystem::path path;
};

} // namespace HarrowSupport::Testing
