#pragma once

#include <string>
#include <vector>

namespace HarrowSupport::Testing
{

/// All files below a folder whose names end in ".pdf" in small or capital letters, sorted; relative to it,
/// with forward slashes.
/// @throws boost::filesystem::filesystem_error
std::vector<std::string> ListPdfFiles(const std::string& folder);

} // namespace HarrowSupport::Testing
