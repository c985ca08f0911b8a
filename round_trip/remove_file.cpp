#include "round_trip/remove_file.h"

#include <utility>

#include <boost/filesystem/operations.hpp>
#include <boost/system/error_code.hpp>

namespace HarrowSupport
{

RemoveFile::RemoveFile(boost::filesystem::path&& file) : path(std::move(file)) {}

RemoveFile::~RemoveFile()
{
    boost::system::error_code ignored;
    boost::filesystem::remove(path, ignored);
}

} // namespace HarrowSupport
