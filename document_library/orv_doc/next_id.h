#pragma once

#include <atomic>
#include <cstdint>

namespace OrvDoc::Detail
{

/// The next ID of an object or a content, from 1 on. One counter serves the whole process, so that an ID
/// stays unique in whichever document its object ends up. Safe from several threads.
inline std::uint64_t NextID()
{
    static std::atomic<std::uint64_t> last{0};
    return last.fetch_add(1, std::memory_order_relaxed) + 1;
}

} // namespace OrvDoc::Detail
