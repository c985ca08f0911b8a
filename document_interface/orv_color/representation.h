#pragma once

#include <cstdint>
#include <iosfwd>
#include <vector>

#include <orv_color/component.h>
#include <orv_sys/export.h>

namespace OrvColor
{

/// What a separation looks like at full tint where its ink is not at hand: an alternate colour, or nothing.
class ORV_EXPORT Representation
{
public:
    enum class Kind : std::uint32_t
    {
        None,
        Gray,
        Rgb,
        Cmyk,
        Lab
    };

    /// No alternate colour.
    Representation();
    Representation(const Representation&);
    Representation(Representation&&) noexcept;
    Representation& operator=(const Representation&);
    Representation& operator=(Representation&&) noexcept;
    ~Representation();

    /// Four components from 0 to 1: cyan, magenta, yellow, black. Throws std::invalid_argument on any other
    /// number of them.
    void SetCmyk(std::vector<Component> components);

    // For makers of documents.

    /// One component, 0 (black) to 1 (white). Throws as SetCmyk does.
    void SetGray(std::vector<Component> components);

    /// Three components from 0 to 1. Throws as SetCmyk does.
    void SetRgb(std::vector<Component> components);

    /// L from 0 to 100, then a and b. Throws as SetCmyk does.
    void SetLab(std::vector<Component> components);

    Kind GetKind() const { return kind; }

    /// As many as the kind has: 0, 1, 3 or 4.
    const std::vector<Component>& GetComponents() const { return components; }

private:
    void Set(Kind newKind, std::size_t count, std::vector<Component>&& newComponents);

    Kind kind = Kind::None;
    std::vector<Component> components;
};

ORV_EXPORT bool operator==(const Representation& left, const Representation& right);
inline bool operator!=(const Representation& left, const Representation& right)
{
    return !(left == right);
}

/// "None", or the kind and its components, such as "Cmyk(0, 0.5, 1, 0)".
ORV_EXPORT std::ostream& operator<<(std::ostream& stream, const Representation& representation);

} // namespace OrvColor
