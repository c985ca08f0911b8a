#include "orv_doc/late_errors.h"

#include <utility>

namespace OrvDoc::Detail
{

void LateErrors::Add(std::string text)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (isBeyondLimit || told.count(text) > 0)
        return;
    if (told.size() < limit) {
        told.insert(text);
    } else {
        isBeyondLimit = true;
        text = textBeyondLimit;
    }
    waiting.push_back(std::move(text));
    isAnyWaiting.store(true, std::memory_order_release);
}

void LateErrors::TakeOver(const std::function<void(const std::vector<std::string>&)>& take)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (waiting.empty())
        return;
    take(waiting);
    waiting.clear();
    // Only now: who sees that nothing waits must see the outcome as well.
    isAnyWaiting.store(false, std::memory_order_release);
}

} // namespace OrvDoc::Detail
