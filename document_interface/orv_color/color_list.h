#pragma once

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <orv_color/color_policies.h>

namespace OrvColor
{

/// Named separations, each with a value that the policy chooses. The fields are open: a list may be filled by
/// hand or through Add.
template <typename P>
struct ColorList
{
    struct Entry
    {
        typename P::Value value = P::Default();
        std::string name;

        friend bool operator==(const Entry& left, const Entry& right)
        {
            return left.value == right.value && left.name == right.name;
        }
        friend bool operator!=(const Entry& left, const Entry& right) { return !(left == right); }
    };

    std::vector<Entry> entries;                   ///< In the order of insertion.
    typename P::Value valueForAll = P::Default(); ///< Counts for every separation if `all` is set.
    bool overprint = false;
    bool all = false; ///< All separations at once, the registration colour.

    /// Appends an entry. Throws std::logic_error if the list stands for all separations, which leaves no
    /// place for a single one.
    void Add(std::string name, typename P::Value value = P::Default())
    {
        if (all)
            throw std::logic_error("Can't add a separation when the \"All\" flag is enabled.");
        entries.push_back(Entry{std::move(value), std::move(name)});
    }

    /// All fields equal, entries in the same order. Whether two lists are the same colour is another
    /// question.
    friend bool operator==(const ColorList& left, const ColorList& right)
    {
        return left.entries == right.entries && left.valueForAll == right.valueForAll &&
               left.overprint == right.overprint && left.all == right.all;
    }
    friend bool operator!=(const ColorList& left, const ColorList& right) { return !(left == right); }
};

} // namespace OrvColor
