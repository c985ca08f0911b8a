#include "pdf/reader/file/stack_room.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

#if defined(__GLIBC__)
#include <pthread.h>
#endif

namespace OrvPdf
{

namespace
{

// What the code needs that handles the exception, and a decoder that runs meanwhile.
constexpr std::uintptr_t Reserve = std::uintptr_t{1} << 20;

// The address below which the current thread's stack must not grow; 0 if it isn't known.
std::uintptr_t FindFloor()
{
#if defined(__GLIBC__)
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) != 0)
        return 0;
    void* lowest = nullptr;
    std::size_t size = 0;
    const bool isKnown = pthread_attr_getstack(&attributes, &lowest, &size) == 0;
    pthread_attr_destroy(&attributes);
    if (!isKnown)
        return 0;
    return reinterpret_cast<std::uintptr_t>(lowest) + std::min<std::uintptr_t>(Reserve, size / 2);
#else
    return 0;
#endif
}

} // namespace

bool HasStackRoom()
{
    thread_local const std::uintptr_t floor = FindFloor();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) >= floor;
}

void RequireStackRoom()
{
    if (!HasStackRoom())
        throw std::runtime_error("references are nested too deeply");
}

} // namespace OrvPdf
