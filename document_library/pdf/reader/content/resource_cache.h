#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace OrvPdf
{

/// Resources by name, each looked up when an operator first needs it. A value that can't be had is kept like
/// others.
template <typename Value>
class ResourceCache
{
public:
    struct Entry
    {
        Value value;
        /// Empty if nothing is wrong.
        std::string problem;
    };

    /// `look(name, problem)` gives a value that isn't there yet. The reference is good until the next call.
    template <typename Look>
    const Entry& Get(std::string_view name, Look look)
    {
        const auto found = entries.find(name);
        if (found != entries.end()) {
            return found->second;
        }
        // A damaged stream can name any number of resources that don't exist.
        if (entries.size() >= maximum) {
            entries.clear();
        }
        std::string text(name);
        Entry entry;
        entry.value = look(text, entry.problem);
        return entries.emplace(std::move(text), std::move(entry)).first->second;
    }

private:
    /// Pages have up to some hundred resources.
    static constexpr std::size_t maximum = 10000;

    std::map<std::string, Entry, std::less<>> entries;
};

} // namespace OrvPdf
