#include "pdf/fonts/cmap_library.h"

#include "pdf/fonts/range_cmap.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace OrvPdf
{

namespace
{

namespace fs = std::filesystem;

constexpr const char* defaultPath = "/usr/share/poppler/cMap";

/// The largest one of the machine has a third of a megabyte.
constexpr std::uintmax_t maximalFileBytes = std::uintmax_t{16} << 20;

/// In the order of their names, so that the same files are found whatever order the folder has.
std::vector<fs::path> List(const fs::path& folder, bool (*accepts)(const fs::path&, std::error_code&))
{
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error)) {
        std::error_code ignored;
        if (accepts(at->path(), ignored))
            found.push_back(at->path());
    }
    std::sort(found.begin(), found.end());
    return found;
}

void AddFiles(const fs::path& folder, std::map<std::string, std::string>& files)
{
    for (const fs::path& file : List(folder, [](const fs::path&path, std::error_code&error) {
             return fs::is_regular_file(path, error);
         }))
        files.emplace(file.filename().string(), file.string());
}

} // namespace

CMapLibrary& CMapLibrary::GetDefault()
{
    static CMapLibrary library = [] {
        const char* const path = std::getenv("ORV_CMAP_PATH");
        return CMapLibrary(SplitPath(path && *path ? path : defaultPath));
    }();
    return library;
}

std::vector<std::string> CMapLibrary::SplitPath(const std::string& path)
{
    std::vector<std::string> folders;
    std::istringstream parts(path);
    for (std::string part; std::getline(parts, part, ':');) {
        if (!part.empty())
            folders.push_back(part);
    }
    return folders;
}

CMapLibrary::CMapLibrary(const std::vector<std::string>& folders)
{
    for (const std::string& folder : folders) {
        AddFiles(folder, files);
        for (const fs::path& collection : List(folder, [](const fs::path&path, std::error_code&error) {
                 return fs::is_directory(path, error);
             }))
            AddFiles(collection, files);
    }
}

std::optional<std::string> CMapLibrary::ReadFile(const std::string& name) const
{
    const auto found = files.find(name);
    if (found == files.end())
        return std::nullopt;
    std::error_code error;
    const std::uintmax_t size = fs::file_size(found->second, error);
    if (error || size > maximalFileBytes)
        return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    std::ifstream file(found->second, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
    return bytes;
}

std::shared_ptr<const CMap> CMapLibrary::Find(const std::string& name, unsigned depth)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto known = maps.find(name);
        if (known != maps.end())
            return known->second;
    }
    // Files that lead to one another in a circle end here.
    if (depth > RangeCMap::maximalDepth)
        return nullptr;
    const auto bytes = ReadFile(name);
    if (!bytes)
        return nullptr;
    const auto find = [this, depth](const std::string& base) { return Find(base, depth + 1); };
    std::string problem;
    auto map = ParseCMap(*bytes, nullptr, find, problem);
    // Of two threads that read the same file at the same time, the first one's counts.
    const std::lock_guard<std::mutex> lock(mutex);
    return maps.emplace(name, std::move(map)).first->second;
}

} // namespace OrvPdf
