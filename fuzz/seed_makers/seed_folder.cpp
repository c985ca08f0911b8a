#include "seed_makers/seed_folder.h"

#include <boost/filesystem/operations.hpp>

#include <fstream>
#include <ios>
#include <stdexcept>
#include <utility>

namespace HarrowSupport::Fuzzing
{

SeedFolder::SeedFolder(boost::filesystem::path folder) : path(std::move(folder))
{
    boost::filesystem::create_directories(path);
}

void SeedFolder::Add(const std::string& name, const std::string& bytes) const
{
    const std::string file = (path / name).string();
    std::ofstream stream(file, std::ios_base::binary);
    stream << bytes << std::flush;
    if (!stream)
        throw std::runtime_error(file + " can't be written.");
}

} // namespace HarrowSupport::Fuzzing
