#pragma once

#include <array>
#include <string>

#include <orv_color/representation.h>

namespace OrvPdf
{

/// Cyan, magenta, yellow and black, from 0 to 1.
using ProcessInks = std::array<float, 4>;

/// The white that Lab colours of separations are told under: D50, as ICC profiles have it.
constexpr std::array<double, 3> whitePointD50 = {0.9642, 1.0, 0.8249};

/// The process inks that look like a full tint of that look: a stand-in, exact to a per mille where it is not
/// given in these inks. Black for one that says nothing.
ProcessInks ToProcessInks(const OrvColor::Representation& representation);

/// The same for a separation of which nothing is known but its name: the process ink that is called so, and
/// black for all others.
ProcessInks GuessProcessInks(const std::string& name);

} // namespace OrvPdf
