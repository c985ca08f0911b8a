#include "seed_makers/random_files.h"
#include "seed_makers/seed_makers.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t documents = 60;
constexpr std::uint32_t streams = 100;
constexpr std::size_t maximalBytes = 4000;

/// Operators with their operands: `$n` is a number, `$u` one from 0 to 1, `$i` a small whole one, `$d` the
/// elements of a dash, and a capital the name of a resource.
constexpr const char* operations[] = {"$n $n m",
                                      "$n $n l",
                                      "$n $n $n $n $n $n c",
                                      "$n $n $n $n v",
                                      "$n $n $n $n y",
                                      "h",
                                      "$n $n $n $n re",
                                      "S",
                                      "s",
                                      "f",
                                      "f*",
                                      "B",
                                      "b*",
                                      "n",
                                      "W n",
                                      "W* n",
                                      "q",
                                      "Q",
                                      "$u $n $n $u $n $n cm",
                                      "$n w",
                                      "$i J",
                                      "$i j",
                                      "$n M",
                                      "[$d] $n d",
                                      "/$G gs",
                                      "/$G gs",
                                      "/$C cs",
                                      "/$C CS",
                                      "$u scn",
                                      "$u $u SCN",
                                      "/$P scn",
                                      "/$P SCN",
                                      "$u /$P scn",
                                      "$u g",
                                      "$u G",
                                      "$u $u $u rg",
                                      "$u $u $u RG",
                                      "$u $u $u $u k",
                                      "$u $u $u $u K",
                                      "/$X Do",
                                      "/$X Do",
                                      "/$H sh",
                                      "BT",
                                      "ET",
                                      "/$F $n Tf",
                                      "$n $n Td",
                                      "$n $n TD",
                                      "$u $n $n $u $n $n Tm",
                                      "T*",
                                      "(abc) Tj",
                                      "[(ab) $n (c) 30] TJ",
                                      "(x y) '",
                                      "$n $n (z) \"",
                                      "$n Tc",
                                      "$n Tw",
                                      "$n Tz",
                                      "$n TL",
                                      "$n Ts",
                                      "$i Tr",
                                      "/T BMC",
                                      "/OC /$O BDC",
                                      "/T /$M BDC",
                                      "EMC",
                                      "/T MP",
                                      "/Perceptual ri",
                                      "BI /W 1 /H 1 /CS /G /BPC 8 ID x EI"};

std::string Name(const char* prefix, std::mt19937& random, unsigned count)
{
    return prefix + std::to_string(random() % count);
}

std::string Operand(char kind, std::mt19937& random)
{
    switch (kind) {
    case 'n':
        return std::to_string(static_cast<int>(random() % 200) - 50);
    case 'u':
        return "0." + std::to_string(random() % 100);
    case 'i':
        return std::to_string(random() % 9);
    case 'd':
        return random() % 3 == 0 ? "" : "3 1";
    case 'G':
        return Name("gs", random, 8);
    case 'C':
        return Name("cs", random, 8);
    case 'P':
        return Name("p", random, 4);
    case 'X':
        return random() % 2 == 0 ? Name("fm", random, 5) : Name("im", random, 4);
    case 'H':
        return Name("sh", random, 3);
    case 'F':
        return Name("f", random, 4);
    case 'O':
        return Name("oc", random, 3);
    case 'M':
        return Name("mc", random, 3);
    default:
        return std::string(1, kind);
    }
}

std::string FillIn(const std::string& operation, std::mt19937& random)
{
    std::string text;
    for (std::size_t i = 0; i < operation.size(); ++i)
        text += operation[i] == '$' ? Operand(operation[++i], random) : std::string(1, operation[i]);
    return text;
}

std::string RandomStream(std::uint32_t seed)
{
    std::mt19937 random(seed);
    std::string stream;
    for (std::uint32_t count = 5 + random() % 60; count != 0; --count)
        stream += FillIn(operations[random() % std::size(operations)], random) + "\n";
    return stream;
}

} // namespace

void MakeContentSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= documents; ++seed) {
        const std::vector<std::string> pages = ContentStreamsOf(MakeRandomFile(seed));
        for (std::size_t page = 0; page < pages.size(); ++page) {
            if (pages[page].size() <= maximalBytes)
                folder.Add("page_" + std::to_string(seed) + "_" + std::to_string(page + 1), pages[page]);
        }
    }
    for (std::uint32_t seed = 1; seed <= streams; ++seed)
        folder.Add("operators_" + std::to_string(seed), RandomStream(seed));
}

} // namespace HarrowSupport::Fuzzing
