#include "stack_room.h"

#include "work_counters.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <thread>

#if defined(__GLIBC__)
#include <pthread.h>
#endif

namespace HarrowSupport::Comparators
{

namespace
{

/// What is left free: enough for what is compared between two calls, a picture's decoder included.
constexpr std::uintptr_t reserve = std::uintptr_t{1} << 20;

/// The address below which the current thread's stack must not grow.
std::uintptr_t FindFloor()
{
#if defined(__GLIBC__)
    pthread_attr_t attributes;
    if (pthread_getattr_np(pthread_self(), &attributes) == 0) {
        void* lowest = nullptr;
        std::size_t size = 0;
        const bool isKnown = pthread_attr_getstack(&attributes, &lowest, &size) == 0;
        pthread_attr_destroy(&attributes);
        if (isKnown)
            return reinterpret_cast<std::uintptr_t>(lowest) + std::min<std::uintptr_t>(reserve, size / 2);
    }
#endif
    // A part of what the main thread has on common machines, from where the first call stands.
    constexpr std::uintptr_t assumed = std::uintptr_t{256} << 10;
    const auto here = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
    return here > assumed ? here - assumed : 0;
}

bool HasStackRoom()
{
    thread_local const std::uintptr_t floor = FindFloor();
    return reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0)) > floor;
}

} // namespace

void CallWithStackRoom(const std::function<void()>& function)
{
    if (HasStackRoom()) {
        function();
        return;
    }
    WorkCounters counters = workCounters;
    std::exception_ptr failure;
    std::thread thread([&] {
        workCounters = counters;
        try {
            function();
        } catch (...) {
            failure = std::current_exception();
        }
        counters = workCounters;
    });
    thread.join();
    workCounters = counters;
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace HarrowSupport::Comparators
