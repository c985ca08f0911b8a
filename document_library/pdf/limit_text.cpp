#include "pdf/limit_text.h"

namespace OrvPdf
{

std::string LimitText(const char* name, std::uint64_t value, const std::string& consequence)
{
    std::string text("limit ");
    text.append(name).append(": ").append(std::to_string(value)).append(" reached");
    if (!consequence.empty())
        text.append(", ").append(consequence);
    return text;
}

} // namespace OrvPdf
