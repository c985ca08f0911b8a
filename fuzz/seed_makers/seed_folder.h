#pragma once

#include <boost/filesystem/path.hpp>

#include <string>

namespace HarrowSupport::Fuzzing
{

/// Where the seeds of one fuzz target go.
class SeedFolder
{
public:
    /// Makes the folder if it isn't there.
    /// @throws boost::filesystem::filesystem_error
    explicit SeedFolder(boost::filesystem::path folder);

    /// Writes a seed; one of that name is replaced.
    /// @throws std::runtime_error
    void Add(const std::string& name, const std::string& bytes) const;

private:
    boost::filesystem::path path;
};

} // namespace HarrowSupport::Fuzzing
