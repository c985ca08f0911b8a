#include "orv_doc/content_release.h"

#include <new>
#include <utility>
#include <vector>

namespace OrvDoc::Detail
{

namespace
{

/// What waits until the content that is being destroyed on this thread is gone; null outside of that.
thread_local std::vector<std::shared_ptr<Content>>* waiting = nullptr;

} // namespace

void ReleaseContent(std::shared_ptr<Content> content) noexcept
{
    if (waiting) {
        try {
            waiting->push_back(std::move(content));
        } catch (const std::bad_alloc&) {
            // Without memory for the list the content goes here and now, at the price of depth.
        }
        return;
    }
    std::vector<std::shared_ptr<Content>> contents;
    waiting = &contents;
    content.reset();
    while (!contents.empty()) {
        content = std::move(contents.back());
        contents.pop_back();
        content.reset();
    }
    waiting = nullptr;
}

} // namespace OrvDoc::Detail
