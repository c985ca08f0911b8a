#pragma once

#include <orv_sys/export.h>

namespace OrvDoc::Detail
{

/// Link of an object in an intrusive list. The container of the list owns the objects; the links own nothing.
template <typename T>
struct ORV_EXPORT ListItem
{
    /// The object after this one, null at the end of the list and outside of any list.
    T* next = nullptr;

    // For makers of documents.

    /// The object before this one, null at the start. Lets a container take an object out in constant time.
    T* previous = nullptr;

protected:
    ListItem() = default;
    /// Virtual, so that the table of an object's virtual operations begins here, as the first base, and goes
    /// on with those of the object itself.
    virtual ~ListItem() = default;
    ListItem(const ListItem&) = delete;
    ListItem& operator=(const ListItem&) = delete;
};

/// Intrusive doubly linked list. Readers walk it from `first` over `next`; only the container that owns the
/// objects changes it, since each change has to tell the document.
template <typename T>
struct List
{
    /// First object, null in an empty list.
    T* first = nullptr;
    /// Last object, null in an empty list.
    T* last = nullptr;

    // For makers of documents.

    /// Appends an object that is in no list. Constant time; ownership is the container's affair.
    void Append(T& item) noexcept
    {
        item.previous = last;
        item.next = nullptr;
        (last ? last->next : first) = &item;
        last = &item;
    }

    /// Takes an object of this list out of it. Constant time; the object lives on.
    void Remove(T& item) noexcept
    {
        (item.previous ? item.previous->next : first) = item.next;
        (item.next ? item.next->previous : last) = item.previous;
        item.previous = nullptr;
        item.next = nullptr;
    }
};

} // namespace OrvDoc::Detail
