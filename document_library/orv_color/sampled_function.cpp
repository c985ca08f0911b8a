#include "orv_color/sampled_function.h"

#include "orv_color/function_numbers.h"
#include "orv_sys/stream_bytes.h"

#include <cmath>
#include <cstdint>
#include <string>

namespace OrvColor::Detail
{

namespace
{

constexpr std::size_t MaxInputs = 8; // Each doubles the samples that one value is made of.
constexpr std::size_t MaxOutputs = 64;

struct Samples
{
    std::string bytes;
    std::vector<std::size_t> size;
    std::size_t bits = 0;
    std::size_t outputs = 0;

    // Bits are packed without gaps, highest first.
    double Get(std::size_t sample, std::size_t output) const
    {
        const std::size_t firstBit = (sample * outputs + output) * bits;
        std::uint64_t value = 0;
        for (std::size_t bit = firstBit; bit < firstBit + bits; ++bit)
            value = value << 1 | (static_cast<unsigned char>(bytes[bit / 8]) >> (7 - bit % 8) & 1u);
        return static_cast<double>(value);
    }
};

bool IsSampleWidth(std::int64_t bits)
{
    return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 12 || bits == 16 || bits == 24 ||
           bits == 32;
}

boost::optional<Samples> ReadSamples(const OrvSys::PdfObject& function, std::size_t inputs,
                                     std::size_t outputs)
{
    const auto size = ReadNumbers(function.Find("Size"));
    const auto bits = function.Find("BitsPerSample");
    auto bytes = OrvSys::Detail::DecodeSmallStream(function);
    if (!size || size->size() != inputs || !bits.IsInteger() || !IsSampleWidth(bits.GetInteger()) || !bytes)
        return boost::none;
    Samples samples;
    samples.bits = static_cast<std::size_t>(bits.GetInteger());
    samples.outputs = outputs;
    const std::size_t available = bytes->size() * 8 / (samples.bits * outputs);
    std::size_t count = 1;
    for (const double points : *size) {
        if (!(points >= 1.0) || points > static_cast<double>(available))
            return boost::none;
        samples.size.push_back(static_cast<std::size_t>(points));
        count *= samples.size.back();
        if (count > available)
            return boost::none;
    }
    samples.bytes = std::move(*bytes);
    return samples;
}

// The cell of the grid that an input lies in, and how far along it.
struct Place
{
    std::size_t low;
    std::size_t high;
    double fraction;
};

std::vector<Place> Locate(const Samples& samples, const std::vector<double>& inputs, const Pairs& domain,
                          const Pairs& encode)
{
    std::vector<Place> places;
    for (std::size_t input = 0; input < inputs.size(); ++input) {
        const double last = static_cast<double>(samples.size[input] - 1);
        const double position =
            ClampTo(Interpolate(inputs[input], domain[input], encode[input]), {0.0, last});
        const auto low = static_cast<std::size_t>(position);
        const std::size_t high = low + 1 < samples.size[input] ? low + 1 : low;
        places.push_back({low, high, position - static_cast<double>(low)});
    }
    return places;
}

// The first input varies fastest.
std::vector<double> Blend(const Samples& samples, const std::vector<Place>& places)
{
    std::vector<double> values(samples.outputs, 0.0);
    for (std::size_t corner = 0; corner < std::size_t{1} << places.size(); ++corner) {
        double weight = 1.0;
        std::size_t sample = 0;
        std::size_t stride = 1;
        for (std::size_t input = 0; input < places.size(); ++input) {
            const bool upper = (corner >> input & 1) != 0;
            weight *= upper ? places[input].fraction : 1.0 - places[input].fraction;
            sample += stride * (upper ? places[input].high : places[input].low);
            stride *= samples.size[input];
        }
        if (weight == 0.0)
            continue;
        for (std::size_t output = 0; output < samples.outputs; ++output)
            values[output] += weight * samples.Get(sample, output);
    }
    return values;
}

} // namespace

boost::optional<std::vector<double>> EvaluateSamples(const OrvSys::PdfObject& function,
                                                     const std::vector<double>& inputs, const Pairs& domain,
                                                     const Pairs& range)
{
    if (inputs.empty() || inputs.size() > MaxInputs || range.empty() || range.size() > MaxOutputs)
        return boost::none;
    const auto samples = ReadSamples(function, inputs.size(), range.size());
    if (!samples)
        return boost::none;
    Pairs encode;
    for (const std::size_t points : samples->size)
        encode.push_back({0.0, static_cast<double>(points - 1)});
    if (const auto given = ReadPairs(function.Find("Encode")))
        encode = *given;
    const Pairs decode = ReadPairs(function.Find("Decode")).value_or(range);
    if (encode.size() != inputs.size() || decode.size() != range.size())
        return boost::none;
    std::vector<double> values = Blend(*samples, Locate(*samples, inputs, domain, encode));
    const double highest = std::ldexp(1.0, static_cast<int>(samples->bits)) - 1.0;
    for (std::size_t output = 0; output < values.size(); ++output)
        values[output] = Interpolate(values[output], {0.0, highest}, decode[output]);
    return values;
}

} // namespace OrvColor::Detail
