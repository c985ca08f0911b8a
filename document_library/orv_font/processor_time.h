#pragma once

#include <cstdint>
#include <ctime>

namespace OrvFont::Detail
{

/// The processor time that the calling thread has had, in nanoseconds: waiting for others does not count.
inline std::int64_t GetThreadTime()
{
    std::timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}

} // namespace OrvFont::Detail
