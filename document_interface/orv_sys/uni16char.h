#pragma once

#include <cstddef>
#include <string>

#include <orv_sys/export.h>

namespace OrvSys
{
namespace Core
{

/// Character traits of text in UTF-16 units that travels in `wchar_t`, one unit to an element, whatever the
/// width of `wchar_t` here. A character beyond U+FFFF is two elements, and comparison is by units.
struct uni16char_traits : std::char_traits<wchar_t>
{};

} // namespace Core

/// Converts UTF-8 to UTF-16 units, one unit to an element of @p target, with an end mark of zero behind them.
///
/// All or nothing: a conversion that fails leaves @p target untouched. Overlong forms, surrogates and
/// characters beyond U+10FFFF are not UTF-8. The byte length of @p source plus one is always enough of a
/// capacity.
///
/// @param source zero-terminated UTF-8, or null, which counts as the empty text
/// @param target room for @p capacity units; may be null if the capacity is 0
/// @param capacity in units, the end mark included
/// @return the number of units written, without the end mark; 0 for the empty text, which writes the end mark
/// alone where there is room; -1 if the source is not UTF-8; -2 if the units and the end mark exceed the
/// capacity, or their number an int
ORV_EXPORT int UTF8ToUni16Char(const char* source, wchar_t* target, std::size_t capacity);

} // namespace OrvSys
