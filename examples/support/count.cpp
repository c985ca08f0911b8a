#include "count.h"

namespace Examples
{

std::string Count(std::uint64_t count, const std::string& noun)
{
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace Examples
