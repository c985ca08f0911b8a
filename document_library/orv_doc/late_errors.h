#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace OrvDoc::Detail
{

/// Problems of a file that are found when its document is read already: samples and font programs are decoded
/// when somebody asks for them. They wait here until somebody asks for the document's errors. Shared by the
/// document's list of errors and by what finds them, which may outlive the document. Everything here may be
/// called from several threads.
class LateErrors
{
public:
    /// The most problems that are told, and the text that stands for all others.
    LateErrors(std::uint64_t givenLimit, std::string givenTextBeyondLimit)
        : limit(givenLimit), textBeyondLimit(std::move(givenTextBeyondLimit))
    {}

    /// Adds a problem, unless there was one of the same text before.
    void Add(std::string text);

    /// Whether somebody should take problems over. Costs a look at one number.
    bool IsAnyWaiting() const { return isAnyWaiting.load(std::memory_order_acquire); }

    /// Hands what waits to a function, if anything does. Threads that ask meanwhile wait for its end, so that
    /// they find it done. What it throws goes on to the caller, and the problems wait on.
    void TakeOver(const std::function<void(const std::vector<std::string>&)>& take);

private:
    std::uint64_t limit;
    std::string textBeyondLimit;
    std::mutex mutex;
    std::vector<std::string> waiting;
    std::unordered_set<std::string> told;
    bool isBeyondLimit = false;
    std::atomic<bool> isAnyWaiting{false};
};

} // namespace OrvDoc::Detail
