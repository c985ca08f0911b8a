#include "temporary_folder.h"

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

#include <fstream>
#include <stdexcept>

namespace HarrowSupport::Testing
{

TemporaryFolder::TemporaryFolder()
    : path(boost::filesystem::temp_directory_path() /
           boost::filesystem::unique_path("harrow-test-%%%%-%%%%-%%%%-%%%%"))
{
    boost::filesystem::create_directory(path);
}

TemporaryFolder::~TemporaryFolder()
{
    boost::system::error_code ignored;
    boost::filesystem::remove_all(path, ignored);
}

std::string TemporaryFolder::Write(const std::string& file, const std::string& bytes) const
{
    const std::string name = NameOf(file);
    std::ofstream stream(name, std::ios::binary);
    stream << bytes << std::flush;
    if (!stream)
        throw std::runtime_error(name + " can't be written");
    return name;
}

} // namespace HarrowSupport::Testing
