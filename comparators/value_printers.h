#pragma once

#include "color_list_printers.h"
#include "document_printers.h"
#include "geometry_printers.h"

#include <boost/optional/optional_io.hpp>

#include <ostream>
#include <utility>

/// How the values of a difference are written, one overload of PrintValue for each form.
///
/// The overloads stand before the code that prints (difference_scope.h includes this file first), since those
/// on standard and Boost types are found in no other way.
namespace HarrowSupport::Comparators
{

/// Any other value, by its stream operator: a bool as "1" or "0", an optional as "--" or a blank and the
/// value. It stands first, for the forms below that are made of other values.
template <typename Value>
void PrintValue(std::ostream& stream, const Value& value)
{
    stream << value;
}

/// `(first, second)`
template <typename Value>
void PrintValue(std::ostream& stream, const std::pair<Value, Value>& values)
{
    stream << "(";
    PrintValue(stream, values.first);
    stream << ", ";
    PrintValue(stream, values.second);
    stream << ")";
}

} // namespace HarrowSupport::Comparators
