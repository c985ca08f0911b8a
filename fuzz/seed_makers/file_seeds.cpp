#include "seed_makers/random_files.h"
#include "seed_makers/seed_makers.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t files = 150;

/// Larger ones, mostly those with a colour profile inside, only slow the search down.
constexpr std::size_t maximalBytes = 60000;

} // namespace

void MakeFileSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= files; ++seed) {
        const std::string file = MakeRandomFile(seed);
        if (file.size() <= maximalBytes)
            folder.Add("document_" + std::to_string(seed), file);
    }
}

} // namespace HarrowSupport::Fuzzing
