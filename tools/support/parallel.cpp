#include "parallel.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

namespace HarrowSupport::Testing
{

void ForEachAtOnce(std::size_t count, const std::function<void(std::size_t)>& work, unsigned threads)
{
    std::atomic<std::size_t> next{0};
    std::mutex failureMutex;
    std::exception_ptr failure;
    const auto workOn = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++)
                work(i);
        } catch (...) {
            const std::lock_guard<std::mutex> lock(failureMutex);
            failure = std::current_exception();
        }
    };
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    std::vector<std::thread> workers(threads == 0 ? cores : threads);
    for (std::thread& worker : workers)
        worker = std::thread(workOn);
    for (std::thread& worker : workers)
        worker.join();
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace HarrowSupport::Testing
