#pragma once

namespace Plexa
{

/// Which points a path that crosses itself encloses (ISO 32000-1, 8.5.3.3). The numbers are part of the
/// interface.
enum class WindingRule
{
    EvenOdd = 0,
    NonZero = 1
};

} // namespace Plexa
