#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "orv_doc/content_source.h"

namespace OrvPdf
{

class ForeignObjects;

/// Where the content of a form, a pattern or a soft mask comes from, for who writes it again.
class NestedSource : public OrvDoc::Detail::ContentSource
{
public:
    /// Object number of the stream in its file.
    int object = 0;
    /// The paint or mask that was made of it: one that somebody made with other properties is another one.
    std::weak_ptr<const void> user;
    /// Whether it is a transparency group, and the flags of that.
    bool isGroup = false;
    bool isIsolated = false;
    bool isKnockout = false;
    /// Whether the stream in the file says all there is without what is around it.
    bool isSelfContained = true;
    /// The parameters that it takes over from around: bits of `Inherited`. For a self-contained one they are
    /// to be as at the start of a page.
    std::uint32_t usedParameters = 0;
    /// Whether it has something that the model has no place for.
    bool hasUnmodelled = false;
    /// Null if no object has foreign parameters.
    std::shared_ptr<const ForeignObjects> foreign;
    /// The content's revision when it came out of the file.
    std::uint64_t baseRevision = 0;

    /// Of a cell: that a pattern was made of it, and the object number of that pattern. One object makes many
    /// patterns if it has no colour of its own. Safe to call while others ask.
    void AddPattern(const std::shared_ptr<const void>& pattern, int patternObject) const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        patterns[pattern.get()] = {pattern, patternObject};
    }

    /// The object number of a pattern that was made of the cell; 0 for others.
    int FindPattern(const std::shared_ptr<const void>& pattern) const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        const auto found = patterns.find(pattern.get());
        return found != patterns.end() && found->second.first.lock() == pattern ? found->second.second : 0;
    }

private:
    mutable std::mutex mutex;
    mutable std::map<const void*, std::pair<std::weak_ptr<const void>, int>> patterns;
};

} // namespace OrvPdf
