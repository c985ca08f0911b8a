#include "seed_makers/seed_makers.h"

#include <cstdint>
#include <iterator>
#include <random>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

constexpr std::uint32_t seeds = 150;

// clang-format off
constexpr const char* operators[] = {
    "abs", "add", "and", "atan", "bitshift", "ceiling", "copy", "cos", "cvi", "cvr",
    "div", "dup", "eq", "exch", "exp", "false", "floor", "ge", "gt", "idiv",
    "index", "le", "ln", "log", "lt", "mod", "mul", "ne", "neg", "not",
    "or", "pop", "roll", "round", "sin", "sqrt", "sub", "true", "truncate", "xor"};
// clang-format on

/// Writes functions of all types.
class RandomFunctions
{
public:
    explicit RandomFunctions(std::uint32_t seed) : random(seed) {}

    std::string Make()
    {
        const unsigned inputs = OneIn(2) ? 1 : 1 + random() % 3;
        std::string line;
        for (unsigned input = 0; input < inputs; ++input)
            line += Number() + " ";
        const std::string function = inputs == 1 && OneIn(2) ? OfOneInput(0) : OfMoreInputs(inputs);
        return line + "\n" + (OneIn(5) ? "[" + function + " " + OfOneInput(0) + "]" : function);
    }

private:
    bool OneIn(unsigned count) { return random() % count == 0; }

    std::string Number()
    {
        const int number = static_cast<int>(random() % 41) - 20;
        return std::to_string(number / 10) + (OneIn(3) ? "" : "." + std::to_string(random() % 100));
    }

    std::string Numbers(unsigned count)
    {
        std::string text = "[";
        for (unsigned index = 0; index < count; ++index)
            text += Number() + " ";
        return text + "]";
    }

    static std::string Pairs(unsigned count, const char* pair)
    {
        std::string text = "[";
        for (unsigned index = 0; index < count; ++index)
            text += std::string(pair) + " ";
        return text + "]";
    }

    std::string Exponential()
    {
        std::string text = "<< /FunctionType 2 /Domain [0 1] /N " + Number();
        const unsigned outputs = 1 + random() % 3;
        if (OneIn(2))
            text += " /C0 " + Numbers(outputs) + " /C1 " + Numbers(outputs);
        if (OneIn(3))
            text += " /Range " + Pairs(outputs, "-1 2");
        return text + " >>";
    }

    std::string Stitching(unsigned depth)
    {
        std::string text = "<< /FunctionType 3 /Domain [0 1] /Functions [";
        const unsigned parts = 1 + random() % 3;
        for (unsigned part = 0; part < parts; ++part)
            text += OfOneInput(depth + 1) + " ";
        text += "] /Bounds [";
        for (unsigned bound = 1; bound < parts; ++bound)
            text += "0." + std::to_string(bound * 3) + " ";
        return text + "] /Encode " + Pairs(parts, OneIn(2) ? "0 1" : "1 0") + " >>";
    }

    std::string OfOneInput(unsigned depth)
    {
        if (depth < 3 && OneIn(3))
            return Stitching(depth);
        return OneIn(2) ? Exponential() : OfMoreInputs(1);
    }

    std::string OfMoreInputs(unsigned inputs) { return OneIn(2) ? Sampled(inputs) : Calculator(inputs); }

    std::string Sampled(unsigned inputs)
    {
        static constexpr unsigned depths[] = {1, 2, 4, 8, 12, 16, 24, 32};
        const unsigned outputs = 1 + random() % 3;
        const unsigned points = 1 + random() % 3;
        std::string text = "<< /FunctionType 0 /Domain " + Pairs(inputs, "0 1") + " /Range " +
                           Pairs(outputs, "-2 2") + " /Size " +
                           Pairs(inputs, std::to_string(points).c_str()) + " /BitsPerSample " +
                           std::to_string(depths[random() % std::size(depths)]);
        if (OneIn(3))
            text += " /Encode " + Numbers(2 * inputs);
        if (OneIn(3))
            text += " /Decode " + Numbers(2 * outputs);
        std::string samples;
        for (unsigned count = random() % 200; count > 0; --count)
            samples += static_cast<char>('a' + random() % 26);
        return text + " /Stream (" + samples + ") >>";
    }

    std::string Block(unsigned depth)
    {
        std::string text = "{ ";
        for (unsigned count = random() % 12; count > 0; --count) {
            if (OneIn(3))
                text += Number() + " ";
            else if (depth < 3 && OneIn(6))
                text += "dup 0 gt " + Block(depth + 1) + (OneIn(2) ? "if " : Block(depth + 1) + "ifelse ");
            else
                text += std::string(operators[random() % std::size(operators)]) + " ";
        }
        return text + "} ";
    }

    std::string Calculator(unsigned inputs)
    {
        return "<< /FunctionType 4 /Domain " + Pairs(inputs, "-1 1") + " /Range " +
               Pairs(1 + random() % 3, "-9 9") + " /Stream (" + Block(0) + ") >>";
    }

    std::mt19937 random;
};

} // namespace

void MakeFunctionSeeds(const SeedFolder& folder)
{
    for (std::uint32_t seed = 1; seed <= seeds; ++seed)
        folder.Add("random_" + std::to_string(seed), RandomFunctions(seed).Make());
}

} // namespace HarrowSupport::Fuzzing
