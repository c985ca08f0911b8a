#include "pdf/fonts/shared_programs.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace OrvPdf
{

namespace
{

using OrvFont::Detail::FontProgram;

/// The programs in use, by a digest of their bytes.
class Registry
{
public:
    std::shared_ptr<const FontProgram> Find(std::size_t digest, const std::string& bytes)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return FindLocked(digest, bytes);
    }

    /// The one that another thread has added meanwhile, if so.
    std::shared_ptr<const FontProgram> Add(std::size_t digest, std::shared_ptr<const FontProgram> program)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (auto known = FindLocked(digest, *program->GetBytes()))
            return known;
        if (++added % sweepInterval == 0)
            DropUnused();
        programs[digest].push_back(program);
        return program;
    }

private:
    static constexpr std::size_t sweepInterval = 64;

    std::shared_ptr<const FontProgram> FindLocked(std::size_t digest, const std::string& bytes) const
    {
        const auto found = programs.find(digest);
        if (found == programs.end())
            return nullptr;
        for (const auto& candidate : found->second) {
            auto program = candidate.lock();
            if (program && *program->GetBytes() == bytes)
                return program;
        }
        return nullptr;
    }

    void DropUnused()
    {
        for (auto entry = programs.begin(); entry != programs.end();) {
            auto& candidates = entry->second;
            candidates.erase(std::remove_if(candidates.begin(), candidates.end(),
                                            [](const auto& candidate) { return candidate.expired(); }),
                             candidates.end());
            entry = candidates.empty() ? programs.erase(entry) : std::next(entry);
        }
    }

    std::mutex mutex;
    std::unordered_map<std::size_t, std::vector<std::weak_ptr<const FontProgram>>> programs;
    std::size_t added = 0;
};

} // namespace

std::shared_ptr<const FontProgram> ShareProgram(std::string bytes)
{
    // Never destroyed: fonts may outlive it at the end of the process.
    static Registry& registry = *new Registry;
    const std::size_t digest = std::hash<std::string_view>()(bytes);
    if (auto known = registry.Find(digest, bytes))
        return known;
    return registry.Add(
        digest, std::make_shared<const FontProgram>(std::make_shared<const std::string>(std::move(bytes))));
}

} // namespace OrvPdf
