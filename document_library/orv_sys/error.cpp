#include <orv_sys/error.h>

#include <initializer_list>
#include <ostream>
#include <utility>

namespace OrvSys
{
namespace Core
{

namespace
{

std::string JoinParts(std::initializer_list<const std::string*> parts)
{
    std::string text;
    for (const std::string* part : parts) {
        if (part->empty())
            continue;
        if (!text.empty())
            text += ": ";
        text += *part;
    }
    return text;
}

} // namespace

Error::Error(std::string text) : text_(std::move(text)) {}

Error::Error(const std::string& what, const std::string& where, const std::string& why)
    : text_(JoinParts({&where, &what, &why}))
{}

Error::~Error() = default;

std::ostream& operator<<(std::ostream& stream, const Error& error)
{
    return stream << error.GetText();
}

} // namespace Core
} // namespace OrvSys
