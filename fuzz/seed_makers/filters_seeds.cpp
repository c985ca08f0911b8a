#include "library_support/plain_filters.h"
#include "seed_makers/seed_makers.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

using OrvPdf::FilterStage;

constexpr std::uint32_t seeds = 100;

/// Bytes with runs and repetitions, as samples and texts have them.
std::string MakeBytes(std::mt19937& random)
{
    std::string bytes;
    const std::size_t size = random() % 600;
    while (bytes.size() < size) {
        const std::size_t count = 1 + random() % 20;
        if (random() % 3 == 0 || bytes.empty())
            bytes.append(count, static_cast<char>(random()));
        else
            bytes += bytes.substr(random() % bytes.size(), count);
    }
    return bytes;
}

FilterStage MakePredictor(std::mt19937& random)
{
    static constexpr long long predictors[] = {1, 1, 2, 10, 12, 15};
    static constexpr long long depths[] = {1, 2, 4, 8, 8, 16};
    FilterStage stage;
    stage.predictor = predictors[random() % std::size(predictors)];
    stage.colors = 1 + static_cast<long long>(random() % 4);
    stage.bitsPerComponent = depths[random() % std::size(depths)];
    stage.columns = 1 + static_cast<long long>(random() % 20);
    stage.earlyChange = random() % 2;
    return stage;
}

std::string Line(char letter, const FilterStage& stage)
{
    return letter + std::to_string(stage.predictor) + "," + std::to_string(stage.colors) + "," +
           std::to_string(stage.bitsPerComponent) + "," + std::to_string(stage.columns) + "," +
           std::to_string(stage.earlyChange);
}

/// The line and the data of one filter over the bytes.
std::string MakeSeed(std::mt19937& random)
{
    const std::string bytes = MakeBytes(random);
    const FilterStage stage = MakePredictor(random);
    switch (random() % 6) {
    case 0:
        return "h\n" + EncodeHexadecimal(bytes);
    case 1:
        return "a\n" + EncodeBase85(bytes);
    case 2:
        return "r\n" + EncodeRunLengths(bytes);
    case 3:
        return Line('l', stage) + "\n" +
               EncodeLzw(ApplyPredictor(bytes, stage), stage.earlyChange == 1, 1 + random() % 5000);
    case 4:
        return "a " + Line('f', stage) + "\n" + EncodeBase85(EncodeFlate(ApplyPredictor(bytes, stage)));
    default:
        return Line('f', stage) + "\n" + EncodeFlate(ApplyPredictor(bytes, stage));
    }
}

} // namespace

void MakeFiltersSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= seeds; ++seed) {
        std::mt19937 random(seed);
        folder.Add("random_" + std::to_string(seed), MakeSeed(random));
    }
}

} // namespace HarrowSupport::Fuzzing
