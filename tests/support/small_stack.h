#pragma once

#include <pthread.h>

#include <cstddef>
#include <exception>
#include <functional>
#include <stdexcept>

namespace HarrowSupport::Testing
{

/// Calls a function on a thread whose stack has that many bytes, and waits for its end. What the function
/// throws passes through.
inline void CallWithStack(std::size_t bytes, const std::function<void()>& function)
{
    struct Call
    {
        const std::function<void()>& function;
        std::exception_ptr failure;
    };
    Call call{function, nullptr};
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_t thread;
    const bool isStarted = pthread_attr_setstacksize(&attributes, bytes) == 0 &&
                           pthread_create(
                               &thread, &attributes,
                               [](void* data) -> void* {
                                   auto* const todo = static_cast<Call*>(data);
                                   try {
                                       todo->function();
                                   } catch (...) {
                                       todo->failure = std::current_exception();
                                   }
                                   return nullptr;
                               },
                               &call) == 0;
    pthread_attr_destroy(&attributes);
    if (!isStarted)
        throw std::runtime_error("no thread with such a stack");
    pthread_join(thread, nullptr);
    if (call.failure)
        std::rethrow_exception(call.failure);
}

} // namespace HarrowSupport::Testing
