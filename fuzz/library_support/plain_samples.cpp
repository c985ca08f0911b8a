#include "library_support/plain_samples.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string>

namespace HarrowSupport::Fuzzing
{

namespace
{

using Numbers = std::vector<double>;

/// Empty for what is no array of pairs of numbers, which counts as missing.
Numbers NumbersOf(const OrvSys::PdfObject& function, const char* key, std::size_t multiple = 2)
{
    Numbers numbers;
    const OrvSys::PdfObject array = function.Find(key);
    if (!array.IsArray() || array.GetItems().size() % multiple != 0)
        return {};
    for (const OrvSys::PdfObject& item : array.GetItems()) {
        if (!item.IsNumber())
            return {};
        numbers.push_back(item.GetNumber());
    }
    return numbers;
}

double Between(double number, double low, double high)
{
    return std::max(low, std::min(number, high));
}

/// Where `number` of the range from `low` to `high` comes in another one.
double Map(double number, double low, double high, double newLow, double newHigh)
{
    return low == high ? newLow : newLow + (number - low) * (newHigh - newLow) / (high - low);
}

class PlainSamples
{
public:
    PlainSamples(const OrvSys::PdfObject& function, const std::string& givenBytes)
        : bytes(givenBytes),
          bits(static_cast<std::size_t>(function.Find("BitsPerSample").GetInteger())),
          sizes(NumbersOf(function, "Size", 1)),
          outputs(NumbersOf(function, "Range").size() / 2)
    {}

    /// The value where the inputs from `input` on are at a point of the grid.
    Numbers Find(const Numbers& positions, std::size_t input, std::size_t point) const
    {
        if (input == 0) {
            Numbers values;
            for (std::size_t output = 0; output < outputs; ++output)
                values.push_back(Get(point * outputs + output));
            return values;
        }
        const auto size = static_cast<std::size_t>(sizes[input - 1]);
        const double position = positions[input - 1];
        const auto low = static_cast<std::size_t>(position);
        Numbers values = Find(positions, input - 1, point * size + low);
        const double share = position - std::floor(position);
        if (share == 0.0)
            return values;
        const Numbers upper = Find(positions, input - 1, point * size + low + 1);
        for (std::size_t output = 0; output < outputs; ++output)
            values[output] = values[output] * (1.0 - share) + upper[output] * share;
        return values;
    }

private:
    double Get(std::size_t sample) const
    {
        double value = 0.0;
        for (std::size_t bit = sample * bits; bit < (sample + 1) * bits; ++bit)
            value = 2.0 * value + ((static_cast<unsigned char>(bytes.at(bit / 8)) >> (7 - bit % 8)) & 1);
        return value;
    }

    const std::string& bytes;
    std::size_t bits;
    Numbers sizes;
    std::size_t outputs;
};

} // namespace

Numbers InterpolatePlainly(const OrvSys::PdfObject& function, const std::string& samples,
                           const Numbers& inputs)
{
    const Numbers domain = NumbersOf(function, "Domain");
    const Numbers range = NumbersOf(function, "Range");
    const Numbers sizes = NumbersOf(function, "Size", 1);
    const Numbers encode = NumbersOf(function, "Encode");
    const Numbers stated = NumbersOf(function, "Decode");
    const Numbers& decode = stated.empty() ? range : stated;
    Numbers positions;
    for (std::size_t input = 0; input < inputs.size(); ++input) {
        const double low = domain[2 * input];
        const double high = domain[2 * input + 1];
        const double last = std::floor(sizes[input]) - 1.0;
        const double first = encode.empty() ? 0.0 : encode[2 * input];
        const double end = encode.empty() ? last : encode[2 * input + 1];
        positions.push_back(
            Between(Map(Between(inputs[input], low, high), low, high, first, end), 0.0, last));
    }
    Numbers values = PlainSamples(function, samples).Find(positions, inputs.size(), 0);
    const double highest = std::exp2(function.Find("BitsPerSample").GetNumber()) - 1.0;
    for (std::size_t output = 0; output < values.size(); ++output)
        values[output] = Map(values[output], 0.0, highest, decode[2 * output], decode[2 * output + 1]);
    return values;
}

} // namespace HarrowSupport::Fuzzing
