#include "seed_makers/seed_makers.h"

#include <cstdint>
#include <random>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t seeds = 100;

/// The objects of a seed are numbered from here.
constexpr unsigned firstObject = 5;

/// Writes optional content properties with random layers, and expressions of them.
class RandomLayers
{
public:
    explicit RandomLayers(std::uint32_t seed) : random(seed)
    {
        layers = 1 + random() % 5;
        expressions = random() % 3;
    }

    std::string Make()
    {
        std::string text = "<< /OCGs [" + All() + "] /D << " + Configuration() + ">> >>\n";
        for (unsigned i = 0; i < layers; ++i)
            text += Layer(i) + "\n";
        for (unsigned i = 0; i < expressions; ++i)
            text += Expression() + "\n";
        return text;
    }

private:
    bool OneIn(unsigned count) { return random() % count == 0; }

    static std::string Reference(unsigned index) { return std::to_string(firstObject + index) + " 0 R "; }

    std::string Any() { return Reference(static_cast<unsigned>(random() % layers)); }

    std::string Some()
    {
        std::string text;
        for (unsigned i = 0; i < layers; ++i)
            text += OneIn(2) ? Reference(i) : "";
        return text;
    }

    std::string All()
    {
        std::string text;
        for (unsigned i = 0; i < layers; ++i)
            text += Reference(i);
        return text;
    }

    std::string Configuration()
    {
        std::string text = "/Order [" + Order(0) + "] ";
        if (OneIn(2))
            text += OneIn(2) ? "/BaseState /OFF /ON [" + Some() + "] " : "/OFF [" + Some() + "] ";
        if (OneIn(2))
            text += "/AS [<< /Event /Print /Category [/Print] /OCGs [" + Some() + "] >>] ";
        return text;
    }

    std::string Order(unsigned depth)
    {
        std::string text = depth != 0 && OneIn(2) ? "(Group " + std::to_string(depth) + ") " : "";
        for (std::uint32_t count = random() % 4; count != 0; --count)
            text += depth < 4 && OneIn(3) ? "[" + Order(depth + 1) + "] " : Any();
        return text;
    }

    std::string Layer(unsigned index)
    {
        std::string text = "<< /Type /OCG /Name (Layer " + std::to_string(index) + ") ";
        if (OneIn(3))
            text += "/GTS_Metadata << /GTS_ProcStepsGroup /Structural /GTS_ProcStepsType /Cutting >> ";
        if (OneIn(2))
            text += std::string("/Usage << /Print << /PrintState ") + (OneIn(2) ? "/ON" : "/OFF") + " >> >> ";
        return text + ">>";
    }

    std::string Expression()
    {
        static constexpr const char* policies[] = {"AllOn", "AnyOn", "AnyOff", "AllOff"};
        if (OneIn(2))
            return "<< /Type /OCMD /P /" + std::string(policies[random() % 4]) + " /OCGs [" + Some() + "] >>";
        return "<< /Type /OCMD /VE " + Operation(0) + ">>";
    }

    std::string Operation(unsigned depth)
    {
        if (depth == 3 || OneIn(3))
            return depth == 0 ? "[/Not " + Any() + "] " : Any();
        if (OneIn(3))
            return "[/Not " + Operation(depth + 1) + "] ";
        return std::string(OneIn(2) ? "[/And " : "[/Or ") + Operation(depth + 1) + Operation(depth + 1) +
               "] ";
    }

    std::mt19937 random;
    unsigned layers;
    unsigned expressions;
};

} // namespace

void MakeLayersSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= seeds; ++seed)
        folder.Add("random_" + std::to_string(seed), RandomLayers(seed).Make());
}

} // namespace HarrowSupport::Fuzzing
