#include <orv_color/component.h>

#include <ostream>

namespace OrvColor
{

std::ostream& operator<<(std::ostream& stream, Component component)
{
    return stream << static_cast<float>(component);
}

std::ostream& operator<<(std::ostream& stream, const std::vector<Component>& components)
{
    stream << '(';
    const char* separator = "";
    for (const Component component : components) {
        stream << separator << component;
        separator = ", ";
    }
    return stream << ')';
}

} // namespace OrvColor
