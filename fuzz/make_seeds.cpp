// Makes seeds for the fuzz targets of what the random documents of the tests and the writer give, beside
// those that people wrote, which stand in seeds/. Usage: make_fuzz_seeds FOLDER [TARGET...]      (to
// FOLDER/<target>/; without TARGET for all that have a maker)

#include "seed_makers/seed_makers.h"

#include <algorithm>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace
{

using namespace HarrowSupport::Fuzzing;

struct SeedMaker
{
    std::string target;
    void (*make)(const SeedFolder&);
};

const SeedMaker makers[] = {
    {"cmap", MakeCMapSeeds},       {"content", MakeContentSeeds}, {"file", MakeFileSeeds},
    {"filters", MakeFiltersSeeds}, {"font", MakeFontSeeds},       {"function", MakeFunctionSeeds},
    {"layers", MakeLayersSeeds},
};

} // namespace

int main(int argumentCount, char** arguments)
{
    const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
    if (words.empty()) {
        std::cerr << "usage: make_fuzz_seeds FOLDER [TARGET...]" << std::endl;
        return 2;
    }
    try {
        for (const SeedMaker& maker : makers) {
            const bool isAsked = std::find(words.begin() + 1, words.end(), maker.target) != words.end();
            if (words.size() == 1 || isAsked)
                maker.make(SeedFolder(words[0] + "/" + maker.target));
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
    return 0;
}
