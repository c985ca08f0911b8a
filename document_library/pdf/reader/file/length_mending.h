#pragma once

#include <cstddef>
#include <vector>

#include "pdf/reader/file/object_places.h"

namespace OrvPdf
{

/// Writes the right length into the dictionaries of streams whose data does not end where they say, if they
/// are so many that the PDF library would take long: for each of them it looks at all objects of the file.
/// The bytes keep their places; a length that does not fit into the room of the wrong one stays. How many
/// were written is returned. Linear in the bytes.
std::size_t MendLengths(const std::vector<ObjectPlace>& places, char* bytes, std::size_t size);

} // namespace OrvPdf
