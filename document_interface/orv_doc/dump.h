#pragma once

#include <cstdint>
#include <iosfwd>

#include <orv_sys/export.h>

namespace OrvDoc
{

class Visitable;

/// What a dump shows.
enum class DumpOption : std::uint32_t
{
    ItemOnly = 0,     ///< One line for the item itself.
    WithBelow = 1024, ///< The item and everything below it, a line each, indented by depth.
};

/// Writes a readable form of an item to the stream, for a person: kind, ID and properties. `indent` is the
/// depth that the item's own line is indented by, two blanks a level. Below level 50 lines are indented no
/// further, and begin with the level in brackets: the text stays linear in the number of items. Numbers are
/// milli-points in the classic locale. The stream's formatting state is neither used nor changed.
ORV_EXPORT void Dump(const Visitable& item, std::ostream& stream, DumpOption option, std::uint64_t indent);

} // namespace OrvDoc
