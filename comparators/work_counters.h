#pragma once

#include <cstdint>

namespace HarrowSupport::Comparators
{

/// How much work this thread's comparisons have done so far. Nothing in a comparison reads it: tests take the
/// difference over a call, so that they guard the speed of the equal case without a clock.
struct WorkCounters
{
    std::uint64_t pairsCompared;  ///< pairs of content objects
    std::uint64_t textsBuilt;     ///< text streams made to show values
    std::uint64_t paintsCompared; ///< pairs of flat paints looked into
    std::uint64_t samplesDecoded; ///< pairs of samples of pictures compared as numbers
};

inline thread_local WorkCounters workCounters{};

} // namespace HarrowSupport::Comparators
