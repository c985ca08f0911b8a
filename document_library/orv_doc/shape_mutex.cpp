#include "orv_doc/shape_mutex.h"

#include <array>
#include <cstdint>

#include <orv_doc/path.h>

namespace OrvDoc::Detail
{

std::mutex& GetShapeMutex(const ContentObject& object)
{
    static std::array<std::mutex, 16> stripes;
    // Neighbours in memory differ above the size of an object, and most objects are paths.
    return stripes[reinterpret_cast<std::uintptr_t>(&object) / sizeof(Path) % stripes.size()];
}

} // namespace OrvDoc::Detail
