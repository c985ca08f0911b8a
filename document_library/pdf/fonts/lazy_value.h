#pragma once

#include <memory>
#include <mutex>
#include <utility>

namespace OrvPdf
{

/// A value that is made when it is first asked for. Safe to use from several threads.
///
/// Nothing is locked while it is made, since what makes it takes access to a file, which somebody may hold
/// who asks for the value. Two threads may therefore make it at once; the first one's stays.
template <typename Value>
class LazyValue
{
public:
    /// The reference is good for as long as this object.
    template <typename Make>
    const Value& Get(Make make) const
    {
        if (const Value* const known = Find())
            return *known;
        auto made = std::make_unique<const Value>(make());
        const std::lock_guard<std::mutex> lock(mutex);
        if (!value)
            value = std::move(made);
        return *value;
    }

private:
    const Value* Find() const
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return value.get();
    }

    mutable std::mutex mutex;
    mutable std::unique_ptr<const Value> value;
};

} // namespace OrvPdf
