#include "pdf_files.h"

#include <boost/algorithm/string/case_conv.hpp>
#include <boost/filesystem/operations.hpp>

#include <algorithm>

namespace HarrowSupport::Testing
{

std::vector<std::string> ListPdfFiles(const std::string& folder)
{
    std::vector<std::string> files;
    for (const auto& entry : boost::filesystem::recursive_directory_iterator(folder)) {
        const std::string extension = boost::algorithm::to_lower_copy(entry.path().extension().string());
        if (boost::filesystem::is_regular_file(entry.path()) && extension == ".pdf")
            files.push_back(boost::filesystem::relative(entry.path(), folder).generic_string());
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace HarrowSupport::Testing
