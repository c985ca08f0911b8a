#include "orv_color/ink_model.h"

#include <algorithm>

namespace OrvColor::Detail
{

namespace
{

// What solid ink lets through: offset inks on coated paper, L*a*b* (55, -37, -50), (48, 74, -3), (89, -5, 93)
// and (16, 0, 0) seen on their paper, with what lies outside of the gamut of sRGB brought to 0.002.
constexpr std::array<Light, 4> Inks = {
    {{0.002, 0.310, 0.701}, {0.690, 0.0035, 0.196}, {0.934, 0.7465, 0.002}, {0.021, 0.021, 0.021}}};

constexpr std::size_t Black = 3;

double Transmitted(std::size_t ink, double tint, std::size_t channel)
{
    return 1.0 - tint * (1.0 - Inks[ink][channel]);
}

} // namespace

Light MixInks(const Tints& tints)
{
    Light light = {1.0, 1.0, 1.0};
    for (std::size_t ink = 0; ink < tints.size(); ++ink) {
        for (std::size_t channel = 0; channel < light.size(); ++channel)
            light[channel] *= Transmitted(ink, tints[ink], channel);
    }
    return light;
}

Tints SeparateLight(const Light& light)
{
    // Cyan governs red, magenta green and yellow blue. Each is solved in turn for its own channel, and black
    // for the channel that bears most of it; the side absorptions are small enough for all to settle.
    constexpr int Rounds = 60;
    Tints tints = {};
    for (int round = 0; round < Rounds; ++round) {
        const Light others = MixInks({tints[0], tints[1], tints[2], 0.0});
        double gray = Inks[Black][0];
        for (std::size_t channel = 0; channel < others.size(); ++channel)
            gray = std::max(gray, light[channel] / others[channel]);
        tints[Black] = std::clamp((1.0 - gray) / (1.0 - Inks[Black][0]), 0.0, 1.0);
        for (std::size_t ink = 0; ink < Black; ++ink) {
            Tints rest = tints;
            rest[ink] = 0.0;
            const double wanted = light[ink] / MixInks(rest)[ink];
            tints[ink] = std::clamp((1.0 - wanted) / (1.0 - Inks[ink][ink]), 0.0, 1.0);
        }
    }
    return tints;
}

} // namespace OrvColor::Detail
