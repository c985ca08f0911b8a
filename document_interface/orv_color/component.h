#pragma once

#include <iosfwd>
#include <type_traits>
#include <vector>

#include <orv_sys/export.h>

namespace OrvColor
{

/// One component of a colour: a float in a class of that size, so that a vector of them can be read as an
/// array of float. Turns into a float and back without being asked.
class Component
{
public:
    constexpr Component() = default;
    constexpr Component(float givenValue) : value(givenValue) {}

    constexpr operator float() const { return value; }

private:
    float value = 0.0f;
};

static_assert(sizeof(Component) == sizeof(float), "a vector of components is read as an array of float");
static_assert(alignof(Component) == alignof(float), "a vector of components is read as an array of float");
static_assert(std::is_standard_layout<Component>::value, "a component is nothing but its float");
static_assert(std::is_trivially_copyable<Component>::value, "a component is nothing but its float");

/// The number as the stream writes a float.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, Component component);

/// "(0.1, 0.2, 0.3)"; "()" for none.
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const std::vector<Component>& components);

} // namespace OrvColor
