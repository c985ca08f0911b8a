#pragma once

#include <string>

namespace Plexa
{
class Compound;
}

namespace OrvPdf
{

/// What of a shape path construction operators can't say.
struct PathLosses
{
    /// A coordinate is infinite or not a number; nothing was written.
    bool notFinite = false;
    /// Nothing is there to be written.
    bool empty = false;
    /// Subpaths that were left out: those without a start point, and lone moves with another subpath behind
    /// them, which would take their place.
    bool leftOut = false;
};

/// Appends the operators that construct the shape (ISO 32000-1, 8.5.2), each on a line of its own. Reading
/// them back gives each coordinate bit by bit. `re`, `v` and `y` are used only where they mean exactly the
/// same segments.
PathLosses AppendPath(std::string& out, const Plexa::Compound& compound);

} // namespace OrvPdf
