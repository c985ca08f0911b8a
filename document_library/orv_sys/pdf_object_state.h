#pragma once

#include <orv_sys/pdf_object.h>

namespace OrvSys
{

/// What the copies of one object share. Only the fields of the kind are in use.
struct PdfObject::State
{
    Kind kind = Kind::Null;
    bool boolean = false;
    bool containsStream = false;
    std::int64_t integer = 0;
    double real = 0.0;
    std::string text; // Of a real, a string, a name; the bytes of a stream.
    Items items;
    Entries entries;
    std::size_t depth = 0;
    std::size_t nodes = 1; // This and all below, shared ones each time that they occur.
    std::size_t bytes = 0; // The same for texts.
    std::uint64_t digest = 0;
};

} // namespace OrvSys
