#pragma once

#include <string>
#include <utility>

#include <orv_sys/export.h>

namespace OrvFont
{

/// Names a font of the library. Opaque: made by `GetFontIDForFontName` and handed on to a `FontManager`.
class ORV_EXPORT ID
{
public:
    ID() = default;

    friend bool operator==(const ID& left, const ID& right) { return left.name == right.name; }
    friend bool operator!=(const ID& left, const ID& right) { return !(left == right); }
    friend bool operator<(const ID& left, const ID& right) { return left.name < right.name; }

    // For makers of fonts.

    explicit ID(std::string givenName) : name(std::move(givenName)) {}
    /// The name as it was asked for.
    const std::string& GetName() const { return name; }

private:
    std::string name;
};

/// The ID of the font of that name. Every name has one; what a manager makes of a name that no font has is
/// said there.
ORV_EXPORT ID GetFontIDForFontName(const std::string& name);

} // namespace OrvFont
