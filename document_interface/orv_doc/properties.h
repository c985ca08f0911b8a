#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include <boost/any.hpp>
#include <boost/container/vector.hpp>
#include <boost/utility/string_view.hpp>

#include <orv_sys/export.h>

namespace OrvDoc
{

/// A list of values of any type under a key, for the users of a document to tie things to its life. The
/// values live as long as the document and are destroyed with it. They are not written to a file.
///
/// Entries stand in the order in which their keys first came. Look-up walks the list, since documents carry a
/// handful of them. Not locked.
class ORV_EXPORT Properties
{
public:
    struct Entry
    {
        std::string key;
        boost::any value;
    };

    Properties();
    ~Properties();
    Properties(const Properties&) = delete;
    Properties& operator=(const Properties&) = delete;

    /// Stores @p value under @p key, in the entry of exactly that key or in a new one at the end. The value
    /// that stood there before, of whatever type, is destroyed when the new one is in its place.
    ///
    /// @return the stored value; good until the key is set again or removed
    /// @throws std::length_error past the largest size of the list; what copying the key and moving the value
    /// throw. The list is unchanged then.
    template <typename T>
    T& Set(boost::string_view key, T&& value)
    {
        static_assert(!std::is_reference<T>::value && !std::is_const<T>::value,
                      "the value is taken over: pass it with std::move");
        boost::any fresh(std::move(value));
        for (Entry& entry : entries_) {
            if (key == entry.key) {
                // The old value goes with `fresh` at the end of this scope, after the result is taken: its
                // destructor may come back here and move the entries.
                entry.value.swap(fresh);
                return boost::any_cast<T&>(entry.value);
            }
        }
        entries_.push_back(Entry{std::string(key.data(), key.size()), boost::any()});
        entries_.back().value.swap(fresh);
        return boost::any_cast<T&>(entries_.back().value);
    }

    // For makers of documents.

    /// The value under @p key, or null. Good until the list changes.
    const boost::any* Find(boost::string_view key) const;

    const boost::container::vector<Entry>& GetEntries() const { return entries_; }

    /// Takes the entry of @p key away and destroys its value.
    /// @return whether there was one
    bool Remove(boost::string_view key);

private:
    boost::container::vector<Entry> entries_;
};

} // namespace OrvDoc
