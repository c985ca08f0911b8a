#include "orv_paint/function_text.h"

namespace OrvPaint::Detail
{

void PrintPairs(std::ostream& stream, const std::vector<std::array<double, 2>>& pairs)
{
    stream << '[';
    const char* separator = "";
    for (const auto& pair : pairs) {
        stream << separator << pair[0] << ' ' << pair[1];
        separator = " ";
    }
    stream << ']';
}

void PrintFrame(std::ostream& stream, const Function& function)
{
    stream << "Domain ";
    PrintPairs(stream, function.GetDomain());
    if (!function.HasRange())
        return;
    stream << ", Range ";
    PrintPairs(stream, function.GetRange());
}

} // namespace OrvPaint::Detail
