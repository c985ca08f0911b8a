#include "seed_makers/random_files.h"
#include "seed_makers/seed_makers.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t files = 400;

/// Larger ones, mostly those with a font or a colour profile inside, take a second each to be opened, saved
/// and compared as often as the laws ask for; the search would come to little else than to them.
constexpr std::size_t maximalBytes = 8000;

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
