#pragma once

#include <array>

namespace OrvColor::Detail
{

using Tints = std::array<double, 4>; // Cyan, magenta, yellow, black, from 0 to 1.
using Light = std::array<double, 3>; // Linear red, green, blue of the primaries of sRGB; paper is (1, 1, 1).

/// What paper shows under halftones of four inks that overlap at random: each ink covers its tint of the
/// area, and where inks lie on each other what they let through multiplies.
Light MixInks(const Tints& tints);

/// Tints that show the light, or the nearest that the inks can, with as much black as the light allows and so
/// never more than two of the other inks in quantity.
Tints SeparateLight(const Light& light);

} // namespace OrvColor::Detail
